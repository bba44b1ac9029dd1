#include "host/job/VRKJobArgumentReader.h"

#include "host/core/VRKPlotterRange.h"
#include "host/core/VRKPrintTextAttribute.h"
#include "host/job/VRKJobNumber.h"
#include "host/job/VRKJobPageKeys.h"

using Kind = VRKJobArgumentKind;

bool VRKJobArgumentReader::Read(const VRKJobVerb& verb, const VRKJobLexer& lexer,
                                VRKJobArguments& arguments) {
    verb_ = &verb;
    lexer_ = &lexer;
    if (ArgCount() < verb.LeastArguments()) {
        return FailArgument("missing argument");
    }
    const std::size_t most = verb.MostArguments();
    if (ArgCount() > most) {
        return FailArgument("extra argument " + VRKJobLexer::Quote(Token(most).text));
    }
    std::size_t arg = 0;
    for (std::size_t slot = 0; slot < verb.kindCount; ++slot) {
        if (!ReadKind(verb.kinds[slot], slot, arg, arguments)) {
            return false;
        }
    }
    return true;
}

bool VRKJobArgumentReader::ReadKind(Kind kind, std::size_t slot, std::size_t& arg,
                                    VRKJobArguments& arguments) {
    VRKJobArguments::Value& value = arguments.values[slot];
    const std::size_t at = arg++;
    switch (kind) {
        case Kind::kLength:
            return Length(at, value.number);
        case Kind::kNumber:
            return Number(at, value.number);
        case Kind::kInteger:
            return Integer(at, value.integer);
        case Kind::kFilled:
            if (!Integer(at, value.integer)) {
                return false;
            }
            return value.integer == 0 || value.integer == 1 ||
                   FailArgument("filled must be 0 or 1");
        case Kind::kComponent:
            if (!Number(at, value.number)) {
                return false;
            }
            return (value.number >= 0.0f && value.number <= 1.0f) ||
                   FailArgument("colour components run from 0.0 to 1.0, got " +
                                VRKJobLexer::Quote(Token(at).text));
        case Kind::kText:
            if (!Token(at).isString) {
                return FailArgument("expected a string in double quotes, got " +
                                    VRKJobLexer::Quote(Token(at).text));
            }
            arguments.text = &Token(at).value;
            return true;
        case Kind::kAttributeValue:
            // It follows the attribute's integer.
            return arguments.values[slot - 1].integer == VRKTextSize ? Length(at, value.number)
                                                                     : Number(at, value.number);
        case Kind::kPoints:
            return Integer(at, value.integer) &&
                   Points(at + 1, value.integer, "", arguments.points);
        case Kind::kPolygons:
            return Polygons(at, arguments, value.integer);
        case Kind::kPixelSize:
            if (ArgCount() - at == 1) {
                return FailArgument("a pixel width without a pixel height");
            }
            if (!Lengths(at, arguments.points)) {
                return false;
            }
            return arguments.points.empty() ||
                   (arguments.points[0] > 0.0f && arguments.points[1] > 0.0f) ||
                   FailArgument("the pixel width and height must be greater than 0");
        case Kind::kDashes:
            return Lengths(at, arguments.points);
        case Kind::kPageKeys:
            return VRKJobPageKeys::Read(*this, at, arguments.page, arguments.pageGiven);
    }
    return false;
}

bool VRKJobArgumentReader::Fail(std::string_view message) {
    error_ = std::string(verb_->name) + ": " + std::string(message);
    return false;
}

bool VRKJobArgumentReader::FailArgument(std::string_view what) {
    error_ = verb_->ArgumentError(what);
    return false;
}

bool VRKJobArgumentReader::Word(std::size_t arg, std::string_view& word) {
    const VRKJobToken& token = Token(arg);
    if (token.isString) {
        return Fail("expected a number, not the string " + VRKJobLexer::Quote(token.text));
    }
    word = token.text;
    return true;
}

bool VRKJobArgumentReader::Number(std::string_view word, float& value, std::string_view what) {
    switch (VRKJobNumber::ParseFloat(word, value)) {
        case VRKJobNumber::Status::kOk:
            return true;
        case VRKJobNumber::Status::kOutOfRange:
            return Fail(std::string(what) + VRKJobLexer::Quote(word) +
                        " is beyond the range of a float");
        default:
            return Fail(std::string(what) + VRKJobLexer::Quote(word) + " is not a number");
    }
}

bool VRKJobArgumentReader::Length(std::string_view word, float& value, std::string_view what) {
    if (!Number(word, value, what)) {
        return false;
    }
    if (!VRKPlotterRange::FitsMillimetres(value)) {
        return Fail(std::string(what) + VRKJobLexer::Quote(word) +
                    " is beyond the plotter's range (at most " +
                    std::to_string(static_cast<long>(VRKPlotterRange::kLargestMillimetres)) +
                    " mm either way)");
    }
    return true;
}

bool VRKJobArgumentReader::Integer(std::string_view word, int& value, std::string_view what) {
    switch (VRKJobNumber::ParseInt(word, value)) {
        case VRKJobNumber::Status::kOk:
            return true;
        case VRKJobNumber::Status::kNotAnInteger:
            return Fail(std::string(what) + VRKJobLexer::Quote(word) + " is not an integer");
        case VRKJobNumber::Status::kOutOfRange:
            return Fail(std::string(what) + VRKJobLexer::Quote(word) +
                        " is beyond the range of an integer");
        default:
            return Fail(std::string(what) + VRKJobLexer::Quote(word) + " is not a number");
    }
}

bool VRKJobArgumentReader::Number(std::size_t arg, float& value) {
    std::string_view word;
    return Word(arg, word) && Number(word, value, "");
}

bool VRKJobArgumentReader::Length(std::size_t arg, float& value) {
    std::string_view word;
    return Word(arg, word) && Length(word, value, "");
}

bool VRKJobArgumentReader::Integer(std::size_t arg, int& value) {
    std::string_view word;
    return Word(arg, word) && Integer(word, value, "");
}

bool VRKJobArgumentReader::Lengths(std::size_t first, std::vector<float>& values) {
    values.resize(ArgCount() - first);
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!Length(first + i, values[i])) {
            return false;
        }
    }
    return true;
}

bool VRKJobArgumentReader::Points(std::size_t first, long long count, std::string_view what,
                                  std::vector<float>& points) {
    const auto given = static_cast<long long>(ArgCount() - first);
    if (count < 0) {
        return FailArgument("a negative point count");
    }
    if (given != 2 * count) {
        std::string message;
        if (!what.empty()) {
            message = std::string(what) + ' ' + std::to_string(count) + " points, which need ";
        } else {
            message = std::to_string(count) + (count == 1 ? " point needs " : " points need ");
        }
        return Fail(message + std::to_string(2 * count) + " coordinates; " + std::to_string(given) +
                    " given");
    }
    return Lengths(first, points);
}

bool VRKJobArgumentReader::Polygons(std::size_t first, VRKJobArguments& arguments, int& polygons) {
    if (!Integer(first, polygons)) {
        return false;
    }
    if (polygons < 0) {
        return FailArgument("a negative polygon count");
    }
    const std::size_t given = ArgCount() - first - 1;
    if (given < static_cast<std::size_t>(polygons)) {
        return Fail(std::to_string(polygons) + " polygons need " + std::to_string(polygons) +
                    " vertex counts; " + std::to_string(given) + " given");
    }
    std::vector<int>& counts = arguments.counts;
    counts.resize(static_cast<std::size_t>(polygons));
    long long total = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (!Integer(first + 1 + i, counts[i])) {
            return false;
        }
        if (counts[i] < 0) {
            return FailArgument("a negative vertex count");
        }
        total += counts[i];
    }
    const std::string what =
        "the " + std::to_string(polygons) + (polygons == 1 ? " polygon has" : " polygons have");
    return Points(first + 1 + counts.size(), total, what, arguments.points);
}
