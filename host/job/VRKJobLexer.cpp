#include "host/job/VRKJobLexer.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// What a byte means to the splitter outside a string: part of a word, or one of the bytes that
// end a word.
enum ByteClass : std::uint8_t { kWordByte, kBlankByte, kCommentByte, kQuoteByte };

constexpr auto kByteClasses = [] {
    std::array<ByteClass, 256> classes{};
    classes[' '] = kBlankByte;
    classes['\t'] = kBlankByte;
    classes['#'] = kCommentByte;
    classes['"'] = kQuoteByte;
    return classes;
}();

ByteClass classOf(char c) {
    return kByteClasses[static_cast<unsigned char>(c)];
}

// True when no byte of the text has its high bit set: plain ASCII is valid UTF-8, and job
// lines nearly always are, so the full check runs only on the others. Eight bytes at a time.
bool isAscii(std::string_view text) {
    std::size_t i = 0;
    std::uint64_t bits = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + i, sizeof word);
        bits |= word;
    }
    for (; i < text.size(); ++i) {
        bits |= static_cast<unsigned char>(text[i]);
    }
    return (bits & 0x8080808080808080ull) == 0;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

// Offset of the first byte that breaks UTF-8 (overlong forms, surrogates and code points above
// U+10FFFF included), or npos when the text is valid.
std::size_t firstInvalidUtf8(std::string_view text) {
    const auto byte = [&](std::size_t k) { return static_cast<std::uint8_t>(text[k]); };
    std::size_t i = 0;
    while (i < text.size()) {
        const std::uint8_t lead = byte(i);
        if (lead < 0x80) {
            ++i;
            continue;
        }
        std::size_t extra = 0;
        std::uint32_t code = 0;
        std::uint32_t smallest = 0;
        if (lead >= 0xC2 && lead <= 0xDF) {
            extra = 1;
            code = lead & 0x1Fu;
            smallest = 0x80;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            extra = 2;
            code = lead & 0x0Fu;
            smallest = 0x800;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            extra = 3;
            code = lead & 0x07u;
            smallest = 0x10000;
        } else {
            return i;
        }
        if (text.size() - i <= extra) {
            return i;
        }
        for (std::size_t k = 1; k <= extra; ++k) {
            const std::uint8_t b = byte(i + k);
            if ((b & 0xC0) != 0x80) {
                return i;
            }
            code = (code << 6) | (b & 0x3Fu);
        }
        if (code < smallest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
            return i;
        }
        i += extra + 1;
    }
    return std::string_view::npos;
}

}  // namespace

std::string VRKJobLexer::Quote(std::string_view text) {
    constexpr std::size_t kLongest = 40;
    std::string out = "'";
    for (std::size_t i = 0; i < text.size() && i < kLongest; ++i) {
        const auto b = static_cast<unsigned char>(text[i]);
        if (b < 0x20 || b > 0x7E) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", b);
            out += hex;
        } else {
            out += static_cast<char>(b);
        }
    }
    if (text.size() > kLongest) {
        out += "...";
    }
    out += '\'';
    return out;
}

VRKJobToken& VRKJobLexer::NextToken() {
    if (count_ == tokens_.size()) {
        tokens_.emplace_back();
    }
    VRKJobToken& token = tokens_[count_++];
    token.text = {};
    token.isString = false;
    if (!token.value.empty()) {
        token.value.clear();
    }
    return token;
}

bool VRKJobLexer::Split(std::string_view line, std::string& error) {
    count_ = 0;
    if (!isAscii(line)) {
        const std::size_t bad = firstInvalidUtf8(line);
        if (bad != std::string_view::npos) {
            error = "the line is not valid UTF-8 (byte " + std::to_string(bad + 1) + ")";
            return false;
        }
    }
    const std::size_t n = line.size();
    std::size_t i = 0;
    while (i < n) {
        const ByteClass kind = classOf(line[i]);
        if (kind == kBlankByte) {
            ++i;
            continue;
        }
        if (kind == kCommentByte) {
            break;
        }
        if (kind == kQuoteByte) {
            if (!ReadString(line, i, error)) {
                return false;
            }
            continue;
        }
        const std::size_t start = i;
        while (i < n && classOf(line[i]) == kWordByte) {
            ++i;
        }
        if (i < n && line[i] == '"') {
            error = "a quote inside " + Quote(line.substr(start, i + 1 - start)) +
                    ": a string must be separated from other tokens by blanks";
            return false;
        }
        NextToken().text = line.substr(start, i - start);
    }
    return true;
}

// Reads the string that starts at line[i] (the opening quote) and leaves i after its closing
// quote.
bool VRKJobLexer::ReadString(std::string_view line, std::size_t& i, std::string& error) {
    const std::size_t start = i++;
    VRKJobToken& token = NextToken();
    token.isString = true;
    for (;;) {
        if (i >= line.size()) {
            error = "unterminated string " + Quote(line.substr(start));
            return false;
        }
        const char c = line[i];
        if (c == '"') {
            ++i;
            break;
        }
        if (c != '\\') {
            token.value.push_back(c);
            ++i;
            continue;
        }
        if (i + 1 >= line.size()) {
            error = "unterminated string " + Quote(line.substr(start));
            return false;
        }
        const char e = line[i + 1];
        switch (e) {
            case '"':
            case '\\':
                token.value.push_back(e);
                i += 2;
                continue;
            case 'n':
                token.value.push_back('\n');
                i += 2;
                continue;
            case 't':
                token.value.push_back('\t');
                i += 2;
                continue;
            case 'x': {
                const int high = i + 2 < line.size() ? hexValue(line[i + 2]) : -1;
                const int low = i + 3 < line.size() ? hexValue(line[i + 3]) : -1;
                if (high < 0 || low < 0) {
                    error = "bad escape " + Quote(line.substr(i, 4)) +
                            " in a string: \\x takes two hex digits";
                    return false;
                }
                token.value.push_back(static_cast<char>(high * 16 + low));
                i += 4;
                continue;
            }
            default:
                error = "bad escape " + Quote(line.substr(i, 2)) +
                        " in a string (known escapes: \\\" \\\\ \\n \\t \\xHH)";
                return false;
        }
    }
    token.text = line.substr(start, i - start);
    if (i < line.size() && !isBlank(line[i]) && line[i] != '#') {
        error = "missing blank after the string " + Quote(token.text);
        return false;
    }
    return true;
}
