// The quick reading of the lines that make up nearly all of a large drawing: a move, a line, a
// circle, a fill or a colour choice, written with plain numbers. Such lines are read straight from
// the read buffer, one after another, without cutting them out first; anything else in them sends
// the line to the general path, which plays it the same way or reports what is wrong with it.

#include <climits>
#include <cstring>
#include <utility>

#include "host/core/VRKPlotterRange.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/job/VRKJobNumber.h"
#include "host/job/VRKJobPlayer.h"

namespace {

// Reads the numbers of a line of plain numbers: each number stands between blanks, and anything
// else (a comment, a string, a word, a number in an uncommon form) stops the reading. The reading
// never passes a line end (LF, or CR before LF) nor the mark put after the read bytes, which are
// neither blanks nor digits, so the loops need not watch for the end of the buffer.
class NumberScanner {
  public:
    // `limit` is the end of the buffer: the careful reading of uncommon forms stops there.
    NumberScanner(const char* p, const char* limit) : p_(p), limit_(limit) {}

    bool Float(float& value) {
        double v = 0.0;
        if (!SkipBlanks()) {
            return false;
        }
        p_ = ScanDecimal(p_, v);
        value = static_cast<float>(v);
        return p_ != nullptr && AtSeparator();
    }
    // A length or coordinate: a number whose plotter units fit the plotter's range. Any other
    // goes to the general path, which says what is wrong with it.
    bool Length(float& value) { return Float(value) && VRKPlotterRange::FitsMillimetres(value); }
    bool Int(int& value) {
        if (!SkipBlanks()) {
            return false;
        }
        p_ = VRKJobNumber::ScanCommonInt(p_, limit_, value);
        return p_ != nullptr && AtSeparator();
    }
    // Past the trailing blanks and the line end: the start of the next line, or null when
    // anything but blanks is left.
    const char* End() {
        while (isBlank(*p_)) {
            ++p_;
        }
        if (*p_ == '\n') {
            return p_ + 1;
        }
        return *p_ == '\r' && p_[1] == '\n' ? p_ + 2 : nullptr;
    }
    const char* Position() const { return p_; }

  private:
    static bool isBlank(char c) { return c == ' ' || c == '\t'; }
    static bool isDigit(char c) { return static_cast<unsigned>(c - '0') < 10u; }
    static bool isLineEnd(const char* p) { return *p == '\n' || (*p == '\r' && p[1] == '\n'); }

    // Past at least one blank (the verb or the previous number ends there); false at the end of
    // the line.
    bool SkipBlanks() {
        if (!isBlank(*p_)) {
            return false;
        }
        do {
            ++p_;
        } while (isBlank(*p_));
        return !isLineEnd(p_);
    }
    bool AtSeparator() const { return isBlank(*p_) || isLineEnd(p_); }

    // The number at `start` in the common form without exponent, read as ScanCommonDecimal
    // reads it (the same digits and the same power of ten give the same value); any other form
    // goes to ScanCommonDecimal itself.
    const char* ScanDecimal(const char* start, double& value) const {
        const char* p = start;
        const bool negative = *p == '-';
        if (*p == '-' || *p == '+') {
            ++p;
        }
        const char* const first = p;
        std::uint64_t digits = 0;
        while (isDigit(*p)) {
            digits = digits * 10 + static_cast<unsigned>(*p - '0');
            ++p;
        }
        int count = static_cast<int>(p - first);
        int decimals = 0;
        if (*p == '.') {
            ++p;
            const char* const fraction = p;
            while (isDigit(*p)) {
                digits = digits * 10 + static_cast<unsigned>(*p - '0');
                ++p;
            }
            decimals = static_cast<int>(p - fraction);
            count += decimals;
        }
        if (count == 0 || count > 19 || *p == 'e' || *p == 'E' ||
            digits > (std::uint64_t{1} << 53)) {
            return VRKJobNumber::ScanCommonDecimal(start, limit_, value);
        }
        const double v = Quotient(digits, decimals);
        value = negative ? -v : v;
        return p;
    }

    // digits / 10^decimals as the caller uses it: narrowed to a float. The division of two
    // exact doubles gives the correctly rounded quotient; a multiplication by the double nearest
    // 10^-decimals comes within two units of its last place, and narrowing either to a float
    // gives the same float unless the quotient lies next to the midpoint of two floats (the 29
    // bits a float drops are then near 2^28): there, and only there, the division is made.
    static double Quotient(std::uint64_t digits, int decimals) {
        const double q = static_cast<double>(digits) * kInversePowersOfTen[decimals];
        std::uint64_t bits;
        std::memcpy(&bits, &q, sizeof bits);
        constexpr std::uint64_t kDropped = (std::uint64_t{1} << 29) - 1;
        constexpr std::uint64_t kMidpoint = std::uint64_t{1} << 28;
        if ((bits & kDropped) - (kMidpoint - 8) <= 16) {
            return static_cast<double>(digits) / VRKJobNumber::kExactPowersOfTen[decimals];
        }
        return q;
    }
    static constexpr double kInversePowersOfTen[] = {
        1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
        1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};

    const char* p_;
    const char* limit_;
};

std::uint64_t loadWord(const char* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

}  // namespace

void VRKJobPlayer::BuildCommonPatterns() {
    const std::pair<const char*, CommonKind> common[kCommonVerbs] = {
        {"MoveTo", CommonKind::kMoveTo},
        {"LineTo", CommonKind::kLineTo},
        {"DrawArcCircle", CommonKind::kArcCircle},
        {"FillArea", CommonKind::kFillArea},
        {"SelectDrawColor", CommonKind::kDrawColor},
        {"SelectFillColor", CommonKind::kFillColor},
    };
    for (int i = 0; i < kCommonVerbs; ++i) {
        CommonPattern& pattern = commonPatterns_[i];
        pattern.kind = common[i].second;
        pattern.verb = FindVerb(common[i].first);
        pattern.length = std::strlen(pattern.verb->name);
        // The verb and its blank, and a mask over just those bytes, in the byte order of a load
        // (every common verb is shorter than 16 bytes).
        char bytes[16] = {};
        char mask[16] = {};
        std::memcpy(bytes, pattern.verb->name, pattern.length);
        bytes[pattern.length] = ' ';
        std::memset(mask, '\xff', pattern.length + 1);
        pattern.word[0] = loadWord(bytes);
        pattern.word[1] = loadWord(bytes + 8);
        pattern.mask[0] = loadWord(mask);
        pattern.mask[1] = loadWord(mask + 8);
    }
}

namespace {

bool opensWith(const char* line, const std::uint64_t word[2], const std::uint64_t mask[2]) {
    return ((loadWord(line) ^ word[0]) & mask[0]) == 0 &&
           ((loadWord(line + 8) ^ word[1]) & mask[1]) == 0;
}

}  // namespace

const VRKJobPlayer::CommonPattern* VRKJobPlayer::FindCommonPattern(const char* line) {
    for (const CommonPattern& pattern : commonPatterns_) {
        if (opensWith(line, pattern.word, pattern.mask)) {
            return &pattern;
        }
    }
    // A common verb with a tab after it: the verb is looked up by name.
    const char* p = line;
    while (*p != ' ' && *p != '\t' && *p != '\n' && *p != '\r' && *p != '\0') {
        ++p;
    }
    const Verb* const verb = FindVerb(std::string_view(line, static_cast<std::size_t>(p - line)));
    for (const CommonPattern& pattern : commonPatterns_) {
        if (pattern.verb == verb) {
            return &pattern;
        }
    }
    return nullptr;
}

const char* VRKJobPlayer::PlayCommonLine(const char* line) {
    return PlayCommonLineInPlace(line);
}

// The body of PlayCommonLine, made in place in the loop of PlayCommonRun: a call per line costs
// there what reading a short line does.
inline __attribute__((always_inline)) const char* VRKJobPlayer::PlayCommonLineInPlace(
    const char* line) {
    const char* const limit = buffer_.data() + buffer_.size();
    // Most lines repeat the verb of the line before: 16 bytes of the line are compared at once
    // with the verb and a blank. Otherwise the other common verbs are tried.
    const CommonPattern* common = common_;
    if (common == nullptr || !opensWith(line, common->word, common->mask)) {
        common = FindCommonPattern(line);
        if (common == nullptr) {
            return nullptr;
        }
        common_ = common;
    }
    const char* const p = line + common->length;
    // Every line played here is checked against the length limit, as the general path checks
    // it, before its call is made.
    const auto tooLong = [&](const char* next) {
        return static_cast<std::size_t>(next - line) - 1 > maxLineLength_;
    };
    NumberScanner scan(p, limit);
    const char* next = nullptr;
    switch (common->kind) {
        case CommonKind::kMoveTo:
        case CommonKind::kLineTo: {
            float x = 0.0f, y = 0.0f;
            if (!scan.Length(x) || !scan.Length(y) || (next = scan.End()) == nullptr ||
                tooLong(next)) {
                return nullptr;
            }
            verb_ = common->verb;
            if (common->kind == CommonKind::kLineTo) {
                generator_.LineTo(x, y);
            } else {
                generator_.MoveTo(x, y);
            }
            return next;
        }
        case CommonKind::kArcCircle: {
            float v[5] = {};
            int filled = 0;
            // Centre and radius are lengths, the two angles are not.
            if (!scan.Length(v[0]) || !scan.Length(v[1]) || !scan.Length(v[2]) ||
                !scan.Float(v[3]) || !scan.Float(v[4])) {
                return nullptr;
            }
            if (!scan.Int(filled) || (next = scan.End()) == nullptr || tooLong(next) ||
                (filled != 0 && filled != 1)) {
                return nullptr;
            }
            verb_ = common->verb;
            generator_.DrawArcCircle(v[0], v[1], v[2], v[3], v[4], filled);
            return next;
        }
        case CommonKind::kFillArea: {
            int polygons = 0;
            if (!scan.Int(polygons) || polygons < 0 || polygons > (1 << 20)) {
                return nullptr;
            }
            counts_.resize(static_cast<std::size_t>(polygons));
            long long total = 0;
            for (int& count : counts_) {
                if (!scan.Int(count) || count < 0) {
                    return nullptr;
                }
                total += count;
            }
            // The buffer bounds the coordinates the line can hold: two bytes each at least.
            if (2 * total > static_cast<long long>(limit - scan.Position())) {
                return nullptr;
            }
            points_.resize(static_cast<std::size_t>(2 * total));
            for (float& value : points_) {
                if (!scan.Length(value)) {
                    return nullptr;
                }
            }
            if ((next = scan.End()) == nullptr || tooLong(next)) {
                return nullptr;
            }
            verb_ = common->verb;
            generator_.FillArea(polygons, counts_.data(), points_.data());
            return next;
        }
        case CommonKind::kDrawColor:
        case CommonKind::kFillColor: {
            int index = 0;
            if (!scan.Int(index) || (next = scan.End()) == nullptr || tooLong(next)) {
                return nullptr;
            }
            verb_ = common->verb;
            if (common->kind == CommonKind::kDrawColor) {
                generator_.SelectDrawColor(index);
            } else {
                generator_.SelectFillColor(index);
            }
            return next;
        }
    }
    return nullptr;
}

bool VRKJobPlayer::PlayCommonRun() {
    if (buffer_.empty()) {
        return true;
    }
    char* const data = buffer_.data();
    // A mark after the read bytes, neither a blank, a digit nor a line end: a line cut by the
    // end of the read bytes stops there and is left for the general path, which reads on.
    data[end_] = '\0';
    const char* p = data + begin_;
    bool played = true;
    while (line_ < INT_MAX) {
        const char* const next = PlayCommonLineInPlace(p);
        if (next == nullptr) {
            break;
        }
        ++line_;
        p = next;
        if (generator_.HasFailed()) {
            played = Fail(std::string("the generator failed in ") + verb_->name);
            break;
        }
    }
    if (p != data + begin_) {
        begin_ = scanned_ = static_cast<std::size_t>(p - data);
    }
    return played;
}
