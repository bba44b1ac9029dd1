#include "host/job/VRKJobPlayer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <istream>

#include "host/core/VRKPixelImage.h"
#include "host/core/VRKPlotterRange.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/image/VRKPngReader.h"
#include "host/job/VRKJobNumber.h"

namespace {

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) {
        return {};
    }
    return slash == 0 ? std::string("/") : path.substr(0, slash);
}

std::string stateName(bool begun) {
    return begun ? "the job began on line " : "the job ended on line ";
}

}  // namespace

// Sorted by nothing in particular: the list is short and looked up once per line.
const VRKJobPlayer::Verb VRKJobPlayer::kVerbs[] = {
    {"Begin", &VRKJobPlayer::DoBegin, "Begin [key=value ...]"},
    {"StartNewPage", &VRKJobPlayer::DoStartNewPage, "StartNewPage [key=value ...]"},
    {"End", &VRKJobPlayer::DoEnd, "End"},
    {"MoveTo", &VRKJobPlayer::DoMoveTo, "MoveTo x y"},
    {"LineTo", &VRKJobPlayer::DoLineTo, "LineTo x y"},
    {"DrawPolyline", &VRKJobPlayer::DoDrawPolyline, "DrawPolyline n x1 y1 ... xn yn"},
    {"DrawPolygon", &VRKJobPlayer::DoDrawPolygon, "DrawPolygon n x1 y1 ... xn yn"},
    {"DrawPolyBezier", &VRKJobPlayer::DoDrawPolyBezier, "DrawPolyBezier n x1 y1 ... xn yn"},
    {"DrawArcCircle", &VRKJobPlayer::DoDrawArcCircle, "DrawArcCircle cx cy r start end filled"},
    {"DrawArcEllipse", &VRKJobPlayer::DoDrawArcEllipse,
     "DrawArcEllipse cx cy rx ry start end rotation filled"},
    {"FillArea", &VRKJobPlayer::DoFillArea, "FillArea k n1 ... nk x y ..."},
    {"DrawBitmap", &VRKJobPlayer::DoDrawBitmap, "DrawBitmap x y \"file.png\" [pw ph]"},
    {"DrawText", &VRKJobPlayer::DoDrawText, "DrawText x y \"text\""},
    {"DefineColor", &VRKJobPlayer::DoDefineColor, "DefineColor i r g b"},
    {"SelectDrawColor", &VRKJobPlayer::DoSelectDrawColor, "SelectDrawColor i"},
    {"SelectFillColor", &VRKJobPlayer::DoSelectFillColor, "SelectFillColor i"},
    {"SetDrawWidth", &VRKJobPlayer::DoSetDrawWidth, "SetDrawWidth w"},
    {"SetLineCap", &VRKJobPlayer::DoSetLineCap, "SetLineCap v"},
    {"SetLineJoin", &VRKJobPlayer::DoSetLineJoin, "SetLineJoin v"},
    {"SetLineStyle", &VRKJobPlayer::DoSetLineStyle,
     "SetLineStyle v, or SetLineStyle attr length [p1 p2 ...]"},
    {"SetTextAttribute", &VRKJobPlayer::DoSetTextAttribute, "SetTextAttribute kind value"},
    {"SetPolygonFillRule", &VRKJobPlayer::DoSetPolygonFillRule, "SetPolygonFillRule v"},
    {"SetFillMode", &VRKJobPlayer::DoSetFillMode, "SetFillMode v"},
};

VRKJobPlayer::VRKJobPlayer(VRKPrintGenerator& generator) : generator_(generator) {
    for (const Verb& verb : kVerbs) {
        verbNames_.emplace_back(verb.name);
    }
    BuildCommonPatterns();
}

class VRKJobPlayer::FileSource final : public Source {
  public:
    explicit FileSource(int fd) : fd_(fd) {}
    ~FileSource() override { ::close(fd_); }
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    // A read error ends the input like the end of the file: the job then lacks its End, or the
    // rest of a line, and says so.
    std::size_t Read(char* data, std::size_t size) override {
        for (;;) {
            const ssize_t n = ::read(fd_, data, size);
            if (n >= 0) {
                return static_cast<std::size_t>(n);
            }
            if (errno != EINTR) {
                return 0;
            }
        }
    }

  private:
    int fd_;
};

class VRKJobPlayer::StreamSource final : public Source {
  public:
    explicit StreamSource(std::istream& in) : buffer_(in.rdbuf()) {}
    // What the stream holds at hand, and only that: a stream that produces its text as it is
    // asked for (a pipe, a generator of lines) is not made to produce a whole block before the
    // first line is played. When nothing is at hand, one byte makes the stream fetch more.
    std::size_t Read(char* data, std::size_t size) override {
        using Traits = std::char_traits<char>;
        if (buffer_ == nullptr || size == 0) {
            return 0;
        }
        std::size_t got = 0;
        if (buffer_->in_avail() <= 0) {
            const Traits::int_type c = buffer_->sbumpc();
            if (Traits::eq_int_type(c, Traits::eof())) {
                return 0;
            }
            data[got++] = Traits::to_char_type(c);
        }
        const std::streamsize atHand = buffer_->in_avail();
        if (atHand > 0 && got < size) {
            const auto want = std::min(static_cast<std::size_t>(atHand), size - got);
            const std::streamsize n =
                buffer_->sgetn(data + got, static_cast<std::streamsize>(want));
            got += n > 0 ? static_cast<std::size_t>(n) : 0;
        }
        return got;
    }

  private:
    std::streambuf* buffer_;
};

bool VRKJobPlayer::PlayFile(const std::string& path) {
    if (path == "-") {
        // Standard input, read as a file is (the source closes its own descriptor).
        const int fd = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
        if (fd < 0) {
            error_ = VRKJobError{"standard input", 0,
                                 std::string("cannot read the job: ") + std::strerror(errno)};
            return false;
        }
        FileSource source(fd);
        return PlaySource(source, "standard input", std::string());
    }
    error_ = VRKJobError{path, 0, {}};
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        error_.message = std::string("cannot open the job file: ") + std::strerror(errno);
        return false;
    }
    if (S_ISDIR(info.st_mode)) {
        error_.message = "cannot open the job file: it is a folder";
        return false;
    }
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error_.message = std::string("cannot open the job file: ") + std::strerror(errno);
        return false;
    }
    // The file is read once from start to end: the kernel may read ahead and drop what was read.
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
    FileSource source(fd);
    return PlaySource(source, path, folderOf(path));
}

bool VRKJobPlayer::Play(std::istream& in, const std::string& fileName,
                        const std::string& baseFolder) {
    StreamSource source(in);
    return PlaySource(source, fileName, baseFolder);
}

bool VRKJobPlayer::PlaySource(Source& source, const std::string& fileName,
                              const std::string& baseFolder) {
    error_ = VRKJobError{fileName, 0, {}};
    baseFolder_ = baseFolder;
    state_ = State::kBeforeBegin;
    beginLine_ = endLine_ = 0;
    params_ = VRKPrintParameters();
    line_ = 0;
    begin_ = end_ = scanned_ = 0;
    atEnd_ = false;

    std::string_view line;
    for (;;) {
        // The common lines that stand whole in the buffer are played straight from it; the
        // line where they stop takes the general path.
        if (state_ == State::kInJob && !PlayCommonRun()) {
            return false;
        }
        const LineRead read = NextLine(source, line);
        if (read == LineRead::kEnd) {
            break;
        }
        if (line_ == INT_MAX) {
            return Fail("too many lines");
        }
        ++line_;
        if (read == LineRead::kTooLong) {
            return Fail("the line is longer than " + std::to_string(maxLineLength_) + " bytes");
        }
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        if (!PlayLine(line, line_, read == LineRead::kLineReadOn)) {
            return false;
        }
    }
    // Errors of the file as a whole are reported at its last line (line 1 for an empty file), so
    // that every message of the player carries a line.
    line_ = line_ > 0 ? line_ : 1;
    if (state_ == State::kBeforeBegin) {
        return Fail("no Begin in the file: a job runs from Begin to End");
    }
    if (state_ == State::kInJob) {
        return Fail("missing End at the end of the file (" + stateName(true) +
                    std::to_string(beginLine_) + ")");
    }
    error_.line = 0;
    return true;
}

// Lines are cut out of a buffer filled a block at a time, and the buffer grows only while a line
// does not fit: a file without line ends (a device, a damaged file) stops at the length limit
// instead of filling memory.
VRKJobPlayer::LineRead VRKJobPlayer::NextLine(Source& source, std::string_view& line) {
    constexpr std::size_t kBlock = std::size_t{1} << 18;
    for (LineRead found = LineRead::kLine;; found = LineRead::kLineReadOn) {
        const char* const data = buffer_.data();
        const void* lf =
            scanned_ < end_ ? std::memchr(data + scanned_, '\n', end_ - scanned_) : nullptr;
        if (lf != nullptr) {
            const auto at = static_cast<std::size_t>(static_cast<const char*>(lf) - data);
            line = std::string_view(data + begin_, at - begin_);
            begin_ = scanned_ = at + 1;
            return line.size() > maxLineLength_ ? LineRead::kTooLong : found;
        }
        scanned_ = end_;
        if (end_ - begin_ > maxLineLength_) {
            return LineRead::kTooLong;
        }
        if (atEnd_) {
            if (begin_ == end_) {
                return LineRead::kEnd;
            }
            // The last line, without a line end. A line end is put after it all the same (in
            // the padding): the reading of common lines stops at line ends.
            buffer_[end_] = '\n';
            line = std::string_view(buffer_.data() + begin_, end_ - begin_);
            begin_ = scanned_ = end_;
            return LineRead::kLineReadOn;
        }
        // Room for a block behind the unplayed bytes: move them to the front, and grow the
        // buffer when they fill most of it.
        const std::size_t pending = end_ - begin_;
        if (begin_ > 0) {
            std::memmove(buffer_.data(), buffer_.data() + begin_, pending);
            begin_ = 0;
            end_ = scanned_ = pending;
        }
        const std::size_t usable = buffer_.empty() ? 0 : buffer_.size() - kReadPadding;
        if (usable - end_ < kBlock / 2) {
            buffer_.resize(std::max(usable * 2, kBlock) + kReadPadding);
        }
        const std::size_t got =
            source.Read(buffer_.data() + end_, buffer_.size() - kReadPadding - end_);
        if (got == 0) {
            atEnd_ = true;
        }
        end_ += got;
    }
}

bool VRKJobPlayer::Fail(std::string message) {
    error_.line = line_;
    error_.message = std::move(message);
    return false;
}

const VRKJobPlayer::Verb* VRKJobPlayer::FindVerb(std::string_view name) const {
    // Jobs repeat a verb line after line: the verb of the previous line is tried first, byte by
    // byte (a verb is a short word; a library call to compare it would cost more).
    if (verb_ != nullptr) {
        const std::string_view previous = verbNames_[static_cast<std::size_t>(verb_ - kVerbs)];
        if (previous.size() == name.size()) {
            std::size_t i = 0;
            while (i < name.size() && previous[i] == name[i]) {
                ++i;
            }
            if (i == name.size()) {
                return verb_;
            }
        }
    }
    for (std::size_t i = 0; i < verbNames_.size(); ++i) {
        if (verbNames_[i] == name) {
            return &kVerbs[i];
        }
    }
    return nullptr;
}

bool VRKJobPlayer::PlayLine(std::string_view line, int lineNumber, bool tryCommon) {
    if (lineNumber == 1 && line.substr(0, 3) == "\xEF\xBB\xBF") {
        return Fail("the file starts with a byte order mark; job files are UTF-8 without one");
    }
    // Common lines were tried in the buffer already (PlayCommonRun): a line that comes here is
    // one they do not take, tried no more, or one that was not whole in the buffer then.
    if (tryCommon && state_ == State::kInJob && PlayCommonLine(line.data()) != nullptr) {
        if (generator_.HasFailed()) {
            return Fail(std::string("the generator failed in ") + verb_->name);
        }
        return true;
    }
    std::string lexError;
    if (!lexer_.Split(line, lexError)) {
        return Fail(std::move(lexError));
    }
    if (lexer_.Count() == 0) {
        return true;
    }
    if (lexer_[0].isString) {
        return Fail("a line starts with a verb, not with the string " +
                    VRKJobLexer::Quote(lexer_[0].text));
    }
    const std::string_view name = lexer_[0].text;
    verb_ = FindVerb(name);
    if (verb_ == nullptr) {
        std::string message = "unknown verb " + VRKJobLexer::Quote(name);
        for (const Verb& verb : kVerbs) {
            const std::string_view known = verb.name;
            bool same = known.size() == name.size();
            for (std::size_t i = 0; same && i < known.size(); ++i) {
                same = (known[i] | 0x20) == (name[i] | 0x20);
            }
            if (same) {
                message += " (verbs are case-sensitive: " + std::string(known) + ")";
                break;
            }
        }
        return Fail(std::move(message));
    }

    const bool isBegin = verb_->handler == &VRKJobPlayer::DoBegin;
    if (state_ == State::kAfterEnd) {
        return Fail(std::string(verb_->name) + " after End (" + stateName(false) +
                    std::to_string(endLine_) + ")");
    }
    if (state_ == State::kInJob && isBegin) {
        return Fail("a second Begin (" + stateName(true) + std::to_string(beginLine_) + ")");
    }
    if (state_ == State::kBeforeBegin && !isBegin) {
        return Fail(std::string(verb_->name) + " before Begin");
    }

    if (!(this->*(verb_->handler))()) {
        return false;
    }
    if (generator_.HasFailed()) {
        return Fail(std::string("the generator failed in ") + verb_->name);
    }
    return true;
}

// ---- Arguments -------------------------------------------------------------------------------

bool VRKJobPlayer::FailArgument(std::string_view what) {
    return Fail(std::string(verb_->name) + ": " + std::string(what) + "; usage: " + verb_->usage);
}

bool VRKJobPlayer::ExpectArgs(std::size_t count) {
    return ExpectArgsBetween(count, count);
}

bool VRKJobPlayer::ExpectArgsBetween(std::size_t least, std::size_t most) {
    if (ArgCount() < least) {
        return FailArgument("missing argument");
    }
    if (ArgCount() > most) {
        return FailArgument("extra argument " + VRKJobLexer::Quote(lexer_[most + 1].text));
    }
    return true;
}

bool VRKJobPlayer::Word(std::size_t arg, std::string_view& word) {
    const VRKJobToken& token = lexer_[arg + 1];
    if (token.isString) {
        return Fail(std::string(verb_->name) + ": expected a number, not the string " +
                    VRKJobLexer::Quote(token.text));
    }
    word = token.text;
    return true;
}

bool VRKJobPlayer::Number(std::string_view word, float& value, std::string_view what) {
    switch (VRKJobNumber::ParseFloat(word, value)) {
        case VRKJobNumber::Status::kOk:
            return true;
        case VRKJobNumber::Status::kOutOfRange:
            return Fail(std::string(verb_->name) + ": " + std::string(what) +
                        VRKJobLexer::Quote(word) + " is beyond the range of a float");
        default:
            return Fail(std::string(verb_->name) + ": " + std::string(what) +
                        VRKJobLexer::Quote(word) + " is not a number");
    }
}

bool VRKJobPlayer::LengthNumber(std::string_view word, float& value, std::string_view what) {
    if (!Number(word, value, what)) {
        return false;
    }
    if (!VRKPlotterRange::FitsMillimetres(value)) {
        return Fail(std::string(verb_->name) + ": " + std::string(what) + VRKJobLexer::Quote(word) +
                    " is beyond the plotter's range (at most " +
                    std::to_string(static_cast<long>(VRKPlotterRange::kLargestMillimetres)) +
                    " mm either way)");
    }
    return true;
}

bool VRKJobPlayer::IntNumber(std::string_view word, int& value, std::string_view what) {
    switch (VRKJobNumber::ParseInt(word, value)) {
        case VRKJobNumber::Status::kOk:
            return true;
        case VRKJobNumber::Status::kNotAnInteger:
            return Fail(std::string(verb_->name) + ": " + std::string(what) +
                        VRKJobLexer::Quote(word) + " is not an integer");
        case VRKJobNumber::Status::kOutOfRange:
            return Fail(std::string(verb_->name) + ": " + std::string(what) +
                        VRKJobLexer::Quote(word) + " is beyond the range of an integer");
        default:
            return Fail(std::string(verb_->name) + ": " + std::string(what) +
                        VRKJobLexer::Quote(word) + " is not a number");
    }
}

bool VRKJobPlayer::Float(std::size_t arg, float& value) {
    std::string_view word;
    return Word(arg, word) && Number(word, value, "");
}

bool VRKJobPlayer::Length(std::size_t arg, float& value) {
    std::string_view word;
    return Word(arg, word) && LengthNumber(word, value, "");
}

bool VRKJobPlayer::Int(std::size_t arg, int& value) {
    std::string_view word;
    return Word(arg, word) && IntNumber(word, value, "");
}

bool VRKJobPlayer::String(std::size_t arg, const std::string*& value) {
    const VRKJobToken& token = lexer_[arg + 1];
    if (!token.isString) {
        return FailArgument("expected a string in double quotes, got " +
                            VRKJobLexer::Quote(token.text));
    }
    value = &token.value;
    return true;
}

bool VRKJobPlayer::Points(std::size_t first, long long count, std::string_view what) {
    const auto given = static_cast<long long>(ArgCount() - first);
    if (count < 0) {
        return FailArgument("a negative point count");
    }
    if (given != 2 * count) {
        std::string message = std::string(verb_->name) + ": ";
        if (!what.empty()) {
            message += std::string(what) + ' ' + std::to_string(count) + " points, which need ";
        } else {
            message += std::to_string(count) + (count == 1 ? " point needs " : " points need ");
        }
        return Fail(message + std::to_string(2 * count) + " coordinates; " + std::to_string(given) +
                    " given");
    }
    points_.resize(static_cast<std::size_t>(given));
    for (std::size_t i = 0; i < points_.size(); ++i) {
        if (!Length(first + i, points_[i])) {
            return false;
        }
    }
    return true;
}

// ---- Parameters of Begin and StartNewPage ----------------------------------------------------

bool VRKJobPlayer::Parameters(VRKPrintParameters& params, bool& given) {
    static constexpr std::string_view kKeys[] = {
        "width", "height", "orientation", "rotation", "colorMode", "margins", "textAsGeometry"};
    bool seen[std::size(kKeys)] = {};
    given = ArgCount() > 0;
    for (std::size_t arg = 0; arg < ArgCount(); ++arg) {
        const VRKJobToken& token = lexer_[arg + 1];
        const std::size_t equals = token.text.find('=');
        if (token.isString || equals == std::string_view::npos || equals == 0) {
            return FailArgument("expected key=value, got " + VRKJobLexer::Quote(token.text));
        }
        const std::string_view key = token.text.substr(0, equals);
        const std::string_view value = token.text.substr(equals + 1);
        std::size_t k = 0;
        while (k < std::size(kKeys) && kKeys[k] != key) {
            ++k;
        }
        if (k == std::size(kKeys)) {
            return Fail(std::string(verb_->name) + ": unknown key " + VRKJobLexer::Quote(key) +
                        " (keys: width height orientation rotation colorMode margins "
                        "textAsGeometry)");
        }
        if (seen[k]) {
            return Fail(std::string(verb_->name) + ": the key " + VRKJobLexer::Quote(key) +
                        " is given twice");
        }
        seen[k] = true;
        if (!Parameter(key, value, params)) {
            return false;
        }
    }
    return true;
}

bool VRKJobPlayer::Parameter(std::string_view key, std::string_view value,
                             VRKPrintParameters& params) {
    const std::string what = std::string(key) + ": ";
    if (key == "width" || key == "height") {
        float size = 0.0f;
        if (!LengthNumber(value, size, what)) {
            return false;
        }
        if (!(size > 0.0f)) {
            return Fail(std::string(verb_->name) + ": " + std::string(key) +
                        " must be greater than 0");
        }
        if (key == "width") {
            params.GetForm().SetWidth(size);
        } else {
            params.GetForm().SetHeight(size);
        }
        return true;
    }
    if (key == "margins") {
        return Margins(value, params);
    }
    int number = 0;
    if (!IntNumber(value, number, what)) {
        return false;
    }
    const int most = key == "rotation" ? 3 : key == "colorMode" ? 2 : 1;
    if (number < 0 || number > most) {
        return Fail(std::string(verb_->name) + ": " + std::string(key) + " must be " +
                    (most == 1 ? "0 or 1" : "0 to " + std::to_string(most)) + ", got " +
                    std::to_string(number));
    }
    if (key == "orientation") {
        params.GetForm().SetOrientation(number);
    } else if (key == "rotation") {
        params.SetPageRotation(number);
    } else if (key == "colorMode") {
        params.SetColorMode(number);
    } else {
        params.SetTextAsGeometry(number);
    }
    return true;
}

bool VRKJobPlayer::Margins(std::string_view value, VRKPrintParameters& params) {
    float margins[4] = {};
    std::size_t from = 0;
    for (int i = 0; i < 4; ++i) {
        const std::size_t comma = value.find(',', from);
        const bool last = i == 3;
        if (last != (comma == std::string_view::npos)) {
            return Fail(std::string(verb_->name) +
                        ": margins takes four values, left,top,right,bottom; got " +
                        VRKJobLexer::Quote(value));
        }
        const std::string_view part =
            value.substr(from, last ? std::string_view::npos : comma - from);
        if (!LengthNumber(part, margins[i], "margins: ")) {
            return false;
        }
        if (margins[i] < 0.0f) {
            return Fail(std::string(verb_->name) + ": margins must not be negative");
        }
        from = comma + 1;
    }
    params.SetMargins(margins[0], margins[1], margins[2], margins[3]);
    return true;
}

// ---- The calls -------------------------------------------------------------------------------

bool VRKJobPlayer::DoBegin() {
    VRKPrintParameters params;
    bool given = false;
    if (!Parameters(params, given)) {
        return false;
    }
    params_ = params;
    state_ = State::kInJob;
    beginLine_ = line_;
    generator_.Begin(params_);
    return true;
}

bool VRKJobPlayer::DoStartNewPage() {
    VRKPrintParameters params = params_;
    bool given = false;
    if (!Parameters(params, given)) {
        return false;
    }
    if (given) {
        params_ = params;
        generator_.StartNewPage(params_);
    } else {
        generator_.StartNewPage();
    }
    return true;
}

bool VRKJobPlayer::DoEnd() {
    if (!ExpectArgs(0)) {
        return false;
    }
    state_ = State::kAfterEnd;
    endLine_ = line_;
    generator_.End();
    return true;
}

bool VRKJobPlayer::DoMoveTo() {
    float x = 0.0f, y = 0.0f;
    if (!ExpectArgs(2) || !Length(0, x) || !Length(1, y)) {
        return false;
    }
    generator_.MoveTo(x, y);
    return true;
}

bool VRKJobPlayer::DoLineTo() {
    float x = 0.0f, y = 0.0f;
    if (!ExpectArgs(2) || !Length(0, x) || !Length(1, y)) {
        return false;
    }
    generator_.LineTo(x, y);
    return true;
}

bool VRKJobPlayer::ReadCountedPoints(int& count) {
    if (ArgCount() < 1) {
        return FailArgument("missing argument");
    }
    return Int(0, count) && Points(1, count, "");
}

bool VRKJobPlayer::DoDrawPolyline() {
    int count = 0;
    if (!ReadCountedPoints(count)) {
        return false;
    }
    generator_.DrawPolyline(count, points_.data());
    return true;
}

bool VRKJobPlayer::DoDrawPolygon() {
    int count = 0;
    if (!ReadCountedPoints(count)) {
        return false;
    }
    generator_.DrawPolygon(count, points_.data());
    return true;
}

bool VRKJobPlayer::DoDrawPolyBezier() {
    int count = 0;
    if (!ReadCountedPoints(count)) {
        return false;
    }
    generator_.DrawPolyBezier(count, points_.data());
    return true;
}

bool VRKJobPlayer::DoDrawArcCircle() {
    float v[5] = {};
    int filled = 0;
    if (!ExpectArgs(6)) {
        return false;
    }
    // Centre and radius are lengths, the angles are not.
    for (std::size_t i = 0; i < 5; ++i) {
        if (!(i < 3 ? Length(i, v[i]) : Float(i, v[i]))) {
            return false;
        }
    }
    if (!Int(5, filled)) {
        return false;
    }
    if (filled != 0 && filled != 1) {
        return FailArgument("filled must be 0 or 1");
    }
    generator_.DrawArcCircle(v[0], v[1], v[2], v[3], v[4], filled);
    return true;
}

bool VRKJobPlayer::DoDrawArcEllipse() {
    float v[7] = {};
    int filled = 0;
    if (!ExpectArgs(8)) {
        return false;
    }
    // Centre and radii are lengths, the angles are not.
    for (std::size_t i = 0; i < 7; ++i) {
        if (!(i < 4 ? Length(i, v[i]) : Float(i, v[i]))) {
            return false;
        }
    }
    if (!Int(7, filled)) {
        return false;
    }
    if (filled != 0 && filled != 1) {
        return FailArgument("filled must be 0 or 1");
    }
    generator_.DrawArcEllipse(v[0], v[1], v[2], v[3], v[4], v[5], v[6], filled);
    return true;
}

bool VRKJobPlayer::DoFillArea() {
    int polygons = 0;
    if (ArgCount() < 1) {
        return FailArgument("missing argument");
    }
    if (!Int(0, polygons)) {
        return false;
    }
    if (polygons < 0) {
        return FailArgument("a negative polygon count");
    }
    if (ArgCount() - 1 < static_cast<std::size_t>(polygons)) {
        return Fail("FillArea: " + std::to_string(polygons) + " polygons need " +
                    std::to_string(polygons) + " vertex counts; " + std::to_string(ArgCount() - 1) +
                    " given");
    }
    counts_.resize(static_cast<std::size_t>(polygons));
    long long total = 0;
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        if (!Int(1 + i, counts_[i])) {
            return false;
        }
        if (counts_[i] < 0) {
            return FailArgument("a negative vertex count");
        }
        total += counts_[i];
    }
    const std::string what =
        "the " + std::to_string(polygons) + (polygons == 1 ? " polygon has" : " polygons have");
    if (!Points(1 + counts_.size(), total, what)) {
        return false;
    }
    generator_.FillArea(polygons, counts_.data(), points_.data());
    return true;
}

bool VRKJobPlayer::DoDrawBitmap() {
    float x = 0.0f, y = 0.0f, pixelWidth = 0.0f, pixelHeight = 0.0f;
    const std::string* file = nullptr;
    if (!ExpectArgsBetween(3, 5) || !Length(0, x) || !Length(1, y) || !String(2, file)) {
        return false;
    }
    if (ArgCount() == 4) {
        return FailArgument("a pixel width without a pixel height");
    }
    const bool sized = ArgCount() == 5;
    if (sized) {
        if (!Length(3, pixelWidth) || !Length(4, pixelHeight)) {
            return false;
        }
        if (!(pixelWidth > 0.0f) || !(pixelHeight > 0.0f)) {
            return FailArgument("the pixel width and height must be greater than 0");
        }
    }
    if (file->empty()) {
        return FailArgument("an empty file name");
    }
    std::string path = *file;
    if (path.front() != '/' && !baseFolder_.empty()) {
        path = (baseFolder_.back() == '/' ? baseFolder_ : baseFolder_ + "/") + path;
    }
    std::string error;
    VRKPixelImage* image = VRKPngReader::OpenFile(path, error);
    if (image == nullptr) {
        return Fail("DrawBitmap: cannot read the bitmap " + VRKJobLexer::Quote(path) + ": " +
                    error);
    }
    if (sized) {
        image->SetPixelSize(pixelWidth, pixelHeight);
    }
    // An image beyond a roll's length is a mistake in its pixel size (a file that says one pixel
    // a metre): the generator would cut it into tiles by the thousand.
    const double width = static_cast<double>(image->GetWidth()) * image->GetPixelWidth();
    const double height = static_cast<double>(image->GetHeight()) * image->GetPixelHeight();
    if (width > kMaxImageExtent || height > kMaxImageExtent) {
        image->Release();
        char size[64];
        std::snprintf(size, sizeof size, "%.0f mm x %.0f mm", width, height);
        return Fail("DrawBitmap: the image " + VRKJobLexer::Quote(path) + " would be " + size +
                    " at its pixel size; an image may be at most " +
                    std::to_string(static_cast<int>(kMaxImageExtent / 1000)) + " m on either side");
    }
    generator_.DrawBitmap(x, y, 0, image);
    image->Release();
    return true;
}

bool VRKJobPlayer::DoDrawText() {
    float x = 0.0f, y = 0.0f;
    const std::string* text = nullptr;
    if (!ExpectArgs(3) || !Length(0, x) || !Length(1, y) || !String(2, text)) {
        return false;
    }
    generator_.DrawText(x, y, VRKUnicodeString(*text));
    return true;
}

bool VRKJobPlayer::DoDefineColor() {
    int index = 0;
    float rgb[3] = {};
    if (!ExpectArgs(4) || !Int(0, index)) {
        return false;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        if (!Float(1 + i, rgb[i])) {
            return false;
        }
        if (rgb[i] < 0.0f || rgb[i] > 1.0f) {
            return FailArgument("colour components run from 0.0 to 1.0, got " +
                                VRKJobLexer::Quote(lexer_[2 + i].text));
        }
    }
    generator_.DefineColor(index, rgb[0], rgb[1], rgb[2]);
    return true;
}

bool VRKJobPlayer::DoSingleInt(void (VRKPrintGenerator::*call)(int) noexcept) {
    int value = 0;
    if (!ExpectArgs(1) || !Int(0, value)) {
        return false;
    }
    (generator_.*call)(value);
    return true;
}

bool VRKJobPlayer::DoSelectDrawColor() {
    return DoSingleInt(&VRKPrintGenerator::SelectDrawColor);
}

bool VRKJobPlayer::DoSelectFillColor() {
    return DoSingleInt(&VRKPrintGenerator::SelectFillColor);
}

bool VRKJobPlayer::DoSetPolygonFillRule() {
    return DoSingleInt(&VRKPrintGenerator::SetPolygonFillRule);
}

bool VRKJobPlayer::DoSetFillMode() {
    return DoSingleInt(&VRKPrintGenerator::SetFillMode);
}

bool VRKJobPlayer::DoSetDrawWidth() {
    float width = 0.0f;
    if (!ExpectArgs(1) || !Length(0, width)) {
        return false;
    }
    generator_.SetDrawWidth(width);
    return true;
}

// The enumeration numbers of the line and text attributes go to the generator unchecked: a job
// file can hand a generator any value a host could, the unexpected ones included.

bool VRKJobPlayer::DoSetLineCap() {
    int value = 0;
    if (!ExpectArgs(1) || !Int(0, value)) {
        return false;
    }
    generator_.SetLineCap(static_cast<VRKPrintLineAttribute>(value));
    return true;
}

bool VRKJobPlayer::DoSetLineJoin() {
    int value = 0;
    if (!ExpectArgs(1) || !Int(0, value)) {
        return false;
    }
    generator_.SetLineJoin(static_cast<VRKPrintLineAttribute>(value));
    return true;
}

bool VRKJobPlayer::DoSetLineStyle() {
    if (ArgCount() == 0) {
        return FailArgument("missing argument");
    }
    int style = 0;
    if (!Int(0, style)) {
        return false;
    }
    if (ArgCount() == 1) {
        generator_.SetLineStyle(style);
        return true;
    }
    float length = 0.0f;
    if (!Length(1, length)) {
        return false;
    }
    points_.resize(ArgCount() - 2);
    for (std::size_t i = 0; i < points_.size(); ++i) {
        if (!Length(2 + i, points_[i])) {
            return false;
        }
    }
    // Without pattern values the generator gets no pattern array at all.
    generator_.SetLineStyle(static_cast<VRKPrintLineAttribute>(style), length,
                            points_.empty() ? nullptr : points_.data());
    return true;
}

bool VRKJobPlayer::DoSetTextAttribute() {
    int kind = 0;
    float value = 0.0f;
    // The text size is a length; fonts, weights and anchors are enumeration values, slants and
    // directions degrees.
    if (!ExpectArgs(2) || !Int(0, kind) ||
        !(kind == VRKTextSize ? Length(1, value) : Float(1, value))) {
        return false;
    }
    generator_.SetTextAttribute(static_cast<VRKPrintTextAttribute>(kind), value);
    return true;
}
