#include "tools/plotdump/PclEscapeDecoder.h"

#include <charconv>

namespace {

// Longest value kept as written; a longer one is cut and marked.
constexpr std::size_t kValueLimit = 32;

bool isParameterized(int b) {
    return b >= 0x21 && b <= 0x2f;
}
bool isGroup(int b) {
    return b >= 0x60 && b <= 0x7e;
}
bool isFinal(int b) {
    return b >= 0x40 && b <= 0x5e;
}
bool isValueByte(int b) {
    return (b >= '0' && b <= '9') || b == '+' || b == '-' || b == '.';
}

// A value as a whole number: the integer part, or -1 when there is none or it is too large.
long long integerOf(const std::string& value) {
    long long n = -1;
    const char* begin = value.data() + (!value.empty() && value[0] == '+' ? 1 : 0);
    const auto result = std::from_chars(begin, value.data() + value.size(), n);
    return result.ec == std::errc() ? n : -1;
}

std::string compression(long long mode) {
    switch (mode) {
        case 0:
            return " (unencoded)";
        case 1:
            return " (run-length)";
        case 2:
            return " (TIFF)";
        case 3:
            return " (delta row)";
        case 5:
            return " (adaptive)";
        default:
            return "";
    }
}

// What two-character sequences (ESC and one byte) do.
std::string twoCharacter(int b) {
    switch (b) {
        case 'E':
            return "reset";
        case '9':
            return "clear margins";
        case '=':
            return "half line feed";
        case 'Y':
            return "display functions on";
        case 'Z':
            return "display functions off";
        default:
            return "";
    }
}

}  // namespace

PclEscapeDecoder::Language PclEscapeDecoder::Decode() {
    const std::uint64_t start = in_.Offset();
    in_.Get();  // ESC
    const int family = in_.Peek();
    if (family >= 0x30 && family <= 0x7e) {
        in_.Get();
        const std::string what = twoCharacter(family);
        out_.Line(std::string("ESC ") + static_cast<char>(family) + (what.empty() ? "" : "  ") +
                  what);
        return family == 'E' ? Language::kPcl : Language::kUnchanged;
    }
    if (!isParameterized(family)) {
        out_.Anomaly(start, "ESC that starts no sequence");
        return Language::kUnchanged;
    }
    in_.Get();
    std::string prefix = std::string("ESC") + static_cast<char>(family);
    if (isGroup(in_.Peek())) {
        prefix += static_cast<char>(in_.Get());
    }
    Language language = Language::kUnchanged;
    for (;;) {
        const std::uint64_t at = in_.Offset();
        std::string value;
        bool cut = false;
        while (isValueByte(in_.Peek())) {
            const char c = static_cast<char>(in_.Get());
            if (value.size() < kValueLimit) {
                value += c;
            } else {
                cut = true;
            }
        }
        if (cut) {
            value += "...";
        }
        const int letter = in_.Peek();
        if (!isGroup(letter) && !isFinal(letter)) {
            out_.Anomaly(at, "unfinished escape sequence " +
                                 ListingOutput::Escaped(prefix.substr(3) + value, true) +
                                 " after ESC");
            return language;
        }
        in_.Get();
        const Language switched = parameter(prefix, value, static_cast<char>(letter));
        if (switched != Language::kUnchanged) {
            language = switched;
        }
        if (isFinal(letter)) {
            return language;
        }
    }
}

PclEscapeDecoder::Language PclEscapeDecoder::parameter(const std::string& prefix,
                                                       const std::string& value, char letter) {
    const char family = prefix[3];
    const char group = prefix.size() > 4 ? prefix[4] : '\0';
    const char final = isGroup(letter) ? static_cast<char>(letter - 0x20) : letter;
    Language language = Language::kUnchanged;
    std::string what = describe(family, group, final, value, language);
    std::string shortData;
    if (final == 'W' || (family == '&' && group == 'p' && final == 'X')) {
        what = data(family, group, value, shortData);
    }
    out_.Line(prefix + value + letter + (what.empty() ? "" : "  ") + what);
    if (!shortData.empty()) {
        out_.Anomaly(in_.Offset(), shortData);
    }
    return language;
}

std::string PclEscapeDecoder::describe(char family, char group, char final,
                                       const std::string& value, Language& language) {
    const long long n = integerOf(value);
    const std::string key{family, group == '\0' ? ' ' : group, final};
    if (key == "% X" && value == "-12345") {
        language = Language::kPcl;
        return "universal exit language (UEL)";
    }
    if (key == "% A") {
        language = Language::kPcl;
        return n == 1 ? "enter PCL, cursor at the pen position"
                      : "enter PCL, cursor where PCL left it";
    }
    if (key == "% B") {
        language = Language::kHpgl;
        if (n == 1) {
            pen_.Forget();
            return "enter HP-GL/2, pen at the PCL cursor";
        }
        return "enter HP-GL/2, pen where HP-GL/2 left it";
    }
    struct Meaning {
        const char* key;
        const char* text;
    };
    static constexpr Meaning kMeanings[] = {
        {"*bM", "compression mode: "},
        {"*bY", "raster y offset: "},
        {"*rS", "raster width: "},
        {"*rT", "raster height: "},
        {"*rA", "start raster graphics: "},
        {"*rF", "raster presentation: "},
        {"*tR", "raster resolution: "},
        {"*tH", "raster destination width: "},
        {"*tV", "raster destination height: "},
        {"*vN", "source transparency: "},
        {"*vO", "pattern transparency: "},
        {"*pX", "cursor x: "},
        {"*pY", "cursor y: "},
        {"&lO", "orientation: "},
        {"&lX", "copies: "},
        {"&uD", "unit of measure: "},
    };
    static constexpr Meaning kUnits[] = {
        {"*rS", " pixels"},        {"*rT", " rows"},       {"*bY", " rows"},
        {"*tR", " dots per inch"}, {"*tH", " decipoints"}, {"*tV", " decipoints"},
        {"*pX", " units"},         {"*pY", " units"},      {"&uD", " units per inch"},
    };
    if (key == "*rC" || key == "*rB") {
        return "end raster graphics";
    }
    if (key == "*pP") {
        return n == 0 ? "push the palette" : n == 1 ? "pop the palette" : "palette stack: " + value;
    }
    if (key == "*vN" || key == "*vO") {
        const std::string text = key == "*vN" ? "source transparency: " : "pattern transparency: ";
        return text + value + (n == 0 ? " (transparent)" : n == 1 ? " (opaque)" : "");
    }
    for (const Meaning& meaning : kMeanings) {
        if (key == meaning.key) {
            std::string text = meaning.text + value;
            for (const Meaning& unit : kUnits) {
                if (key == unit.key) {
                    text += unit.text;
                }
            }
            return key == "*bM" ? text + compression(n) : text;
        }
    }
    return "";
}

std::string PclEscapeDecoder::data(char family, char group, const std::string& value,
                                   std::string& shortData) {
    const long long n = integerOf(value);
    const std::uint64_t count = n > 0 ? static_cast<std::uint64_t>(n) : 0;
    std::string text;
    std::uint64_t got = 0;
    if (family == '*' && group == 'v' && count <= 16) {
        // Configure image data: a few bytes, shown in hexadecimal.
        static constexpr char kHex[] = "0123456789ABCDEF";
        std::string hex;
        for (; got < count && in_.Peek() != -1; ++got) {
            const int b = in_.Get();
            hex += std::string(hex.empty() ? "" : " ") + kHex[b >> 4] + kHex[b & 15];
        }
        text = "configure image data: " + std::to_string(count) + " bytes" +
               (hex.empty() ? "" : ": " + hex);
    } else {
        got = in_.Skip(count);
        const std::string bytes = std::to_string(count) + (count == 1 ? " byte" : " bytes");
        text = family == '*' && group == 'b'   ? "transfer raster row: " + bytes
               : family == '*' && group == 'v' ? "configure image data: " + bytes
                                               : "data: " + bytes;
    }
    if (got < count) {
        shortData = "only " + std::to_string(got) + " of the " + std::to_string(count) +
                    " data bytes before the end of the plot";
    }
    return text;
}
