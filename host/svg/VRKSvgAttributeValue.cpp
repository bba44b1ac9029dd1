#include "host/svg/VRKSvgAttributeValue.h"

namespace {

// Appends the character `code` in UTF-8.
void AppendUtf8(std::string& out, unsigned long code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

}  // namespace

std::string VRKSvgAttributeValue::Decode(std::string_view raw) {
    if (raw.find('&') == std::string_view::npos) {
        return std::string(raw);
    }
    std::string value;
    value.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const std::size_t semicolon = raw[i] == '&' ? raw.find(';', i) : std::string_view::npos;
        if (semicolon == std::string_view::npos) {
            value += raw[i];
            continue;
        }
        const std::string_view name = raw.substr(i + 1, semicolon - i - 1);
        i = semicolon;
        if (name.size() > 1 && name[0] == '#') {
            const bool hex = name[1] == 'x';
            unsigned long code = 0;
            for (const char c : name.substr(hex ? 2 : 1)) {
                const int digit = c >= '0' && c <= '9'          ? c - '0'
                                  : hex && c >= 'a' && c <= 'f' ? c - 'a' + 10
                                  : hex && c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                                : -1;
                if (digit < 0 || code > 0x10FFFF) {
                    code = 0;
                    break;
                }
                code = code * (hex ? 16 : 10) + static_cast<unsigned long>(digit);
            }
            if (code > 0 && code <= 0x10FFFF) {
                AppendUtf8(value, code);
            }
        } else if (name == "amp") {
            value += '&';
        } else if (name == "lt") {
            value += '<';
        } else if (name == "gt") {
            value += '>';
        } else if (name == "apos") {
            value += '\'';
        } else if (name == "quot") {
            value += '"';
        }
    }
    return value;
}
