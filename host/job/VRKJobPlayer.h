#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/VRKPrintParameters.h"
#include "host/job/VRKJobError.h"
#include "host/job/VRKJobLexer.h"

class VRKPrintGenerator;

// Plays a job file into a print generator: one public call of VRKPrintGenerator per line, in the
// order of the file (the format is described in docs/jobfile.md).
//
// The player streams. It reads one line, checks all of it (tokens, argument count, every number,
// the job's state, the bitmap file) and only then makes the call, so a line with an error makes
// no call at all. It keeps nothing of a line once the call is made; the memory it holds is that
// of the longest line, however long the file.
//
// Playing stops at the first error, which GetError() then describes. The player does not close a
// job that fails: whatever the generator wrote is incomplete, and the caller throws it away.
class VRKJobPlayer {
  public:
    // The generator must outlive the player; the player makes calls on it and nothing else (it
    // does not attach streams or release it).
    explicit VRKJobPlayer(VRKPrintGenerator& generator);
    VRKJobPlayer(const VRKJobPlayer&) = delete;
    VRKJobPlayer& operator=(const VRKJobPlayer&) = delete;

    // Plays the job file at `path`; bitmap paths are taken from the file's folder. "-" plays
    // standard input, named "standard input" in messages, with bitmaps from the current folder.
    // True when the whole job was played, from Begin to End.
    bool PlayFile(const std::string& path);
    // Plays a job read from `in`. `fileName` names the job in error messages; `baseFolder` is
    // the folder relative bitmap paths are taken from (empty: the current folder).
    bool Play(std::istream& in, const std::string& fileName, const std::string& baseFolder);

    // The error that stopped the last Play, or an empty message after a success.
    const VRKJobError& GetError() const { return error_; }

    // Lines longer than this many bytes (the LF not counted) are refused, so that a file
    // without line ends cannot take all memory, and the tokens of the longest line stay within a
    // few tens of megabytes. The default, 1 MiB, holds some 100,000 points of drawn coordinates
    // on one line, far more than any one call of a real drawing.
    static constexpr std::size_t kDefaultMaxLineLength = std::size_t{1} << 20;
    void SetMaxLineLength(std::size_t bytes) { maxLineLength_ = bytes; }

    // The largest side of a bitmap on the page, in millimetres: 100 m, longer than a roll.
    static constexpr double kMaxImageExtent = 100000.0;

  private:
    enum class State { kBeforeBegin, kInJob, kAfterEnd };
    // kLine: a line that stood whole in the buffer when NextLine was called; kLineReadOn: one
    // that it had to read on for (or the last line, which has no line end).
    enum class LineRead { kLine, kLineReadOn, kEnd, kTooLong };
    using Handler = bool (VRKJobPlayer::*)();
    struct Verb {
        const char* name;
        Handler handler;
        // The line's arguments as a user would write them, for messages.
        const char* usage;
    };
    static const Verb kVerbs[];
    // A verb of common lines, as the bytes (and the mask of the bytes) that open its lines: the
    // verb and one blank, at most 16 bytes.
    enum class CommonKind { kMoveTo, kLineTo, kArcCircle, kFillArea, kDrawColor, kFillColor };
    struct CommonPattern {
        const Verb* verb = nullptr;
        CommonKind kind = CommonKind::kMoveTo;
        std::size_t length = 0;
        std::uint64_t word[2] = {};
        std::uint64_t mask[2] = {};
    };

    // Where the job's bytes come from: a file or a stream, read a block at a time.
    class Source {
      public:
        virtual ~Source() = default;
        // Up to `size` bytes into `data`; 0 at the end of the input.
        virtual std::size_t Read(char* data, std::size_t size) = 0;
    };
    class FileSource;
    class StreamSource;

    bool PlaySource(Source& source, const std::string& fileName, const std::string& baseFolder);
    // The next line, without its LF, as a view into the read buffer that stays valid until the
    // next call.
    LineRead NextLine(Source& source, std::string_view& line);
    // `tryCommon`: the line may be a common one that PlayCommonRun could not see whole.
    bool PlayLine(std::string_view line, int lineNumber, bool tryCommon);
    // Plays the lines that make up nearly all of a large drawing (moves, lines, circles, fills,
    // colour choices) when they hold plain numbers and nothing else, reading the numbers straight
    // from the read buffer. `line` is the start of a line in the buffer. Returns the start of the
    // next line, or null, without a call, for any line it does not take (one it does not know,
    // one with anything uncommon in it, one that does not end before the buffer's read bytes
    // do): the general path then plays the line or reports what is wrong with it.
    const char* PlayCommonLine(const char* line);
    // Plays the common lines that follow one another in the buffer from begin_, and moves
    // begin_ past them. False when the generator failed in one of them.
    bool PlayCommonRun();
    const char* PlayCommonLineInPlace(const char* line);
    // The patterns of the common verbs, made once.
    void BuildCommonPatterns();
    // The common verb that opens `line`, or null.
    const CommonPattern* FindCommonPattern(const char* line);
    bool Fail(std::string message);
    bool FailArgument(std::string_view what);
    const Verb* FindVerb(std::string_view name) const;

    // Argument access: the arguments are the tokens after the verb, counted from 0.
    std::size_t ArgCount() const { return lexer_.Count() - 1; }
    bool ExpectArgs(std::size_t count);
    bool ExpectArgsBetween(std::size_t least, std::size_t most);
    bool Word(std::size_t arg, std::string_view& word);
    bool Float(std::size_t arg, float& value);
    // A length or coordinate in millimetres: a number whose plotter units fit the plotter's range
    // (VRKPlotterRange), for the generator takes it as it is.
    bool Length(std::size_t arg, float& value);
    bool Int(std::size_t arg, int& value);
    bool String(std::size_t arg, const std::string*& value);
    bool Number(std::string_view word, float& value, std::string_view what);
    bool LengthNumber(std::string_view word, float& value, std::string_view what);
    bool IntNumber(std::string_view word, int& value, std::string_view what);
    // Reads `count` points (2 * count coordinates, each a Length) from argument `first` into
    // points_.
    bool Points(std::size_t first, long long count, std::string_view what);
    // The key=value arguments of Begin and StartNewPage applied to `params`; `given` says
    // whether there were any.
    bool Parameters(VRKPrintParameters& params, bool& given);
    bool Parameter(std::string_view key, std::string_view value, VRKPrintParameters& params);
    bool Margins(std::string_view value, VRKPrintParameters& params);

    bool DoBegin();
    bool DoStartNewPage();
    bool DoEnd();
    bool DoMoveTo();
    bool DoLineTo();
    bool DoDrawPolyline();
    bool DoDrawPolygon();
    bool DoDrawPolyBezier();
    bool DoDrawArcCircle();
    bool DoDrawArcEllipse();
    bool DoFillArea();
    bool DoDrawBitmap();
    bool DoDrawText();
    bool DoDefineColor();
    bool DoSelectDrawColor();
    bool DoSelectFillColor();
    bool DoSetDrawWidth();
    bool DoSetLineCap();
    bool DoSetLineJoin();
    bool DoSetLineStyle();
    bool DoSetTextAttribute();
    bool DoSetPolygonFillRule();
    bool DoSetFillMode();
    // The shared part of the polyline, polygon and Bézier lines: count, then the points.
    bool ReadCountedPoints(int& count);
    bool DoSingleInt(void (VRKPrintGenerator::*call)(int) noexcept);

    VRKPrintGenerator& generator_;
    VRKJobLexer lexer_;
    const Verb* verb_ = nullptr;
    State state_ = State::kBeforeBegin;
    std::size_t maxLineLength_ = kDefaultMaxLineLength;
    int line_ = 0;
    int beginLine_ = 0;
    int endLine_ = 0;
    VRKPrintParameters params_;
    std::string baseFolder_;
    VRKJobError error_;
    // The read buffer: bytes [begin_, end_) are read and not yet played, and those before
    // scanned_ hold no LF. It grows only for a line longer than itself.
    // Beyond the bytes read, the buffer keeps kReadPadding bytes more: the reading of common
    // lines loads words that may reach past the last line, and a mark put at end_ stops it there.
    static constexpr std::size_t kReadPadding = 64;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t scanned_ = 0;
    bool atEnd_ = false;
    // Scratch arrays of the current line, kept between lines for their memory.
    std::vector<float> points_;
    std::vector<int> counts_;
    // The verb table's names as views, for the comparisons of every line.
    std::vector<std::string_view> verbNames_;
    // The verbs of common lines (common_ is the one met last).
    static constexpr int kCommonVerbs = 6;
    CommonPattern commonPatterns_[kCommonVerbs];
    const CommonPattern* common_ = nullptr;
};
