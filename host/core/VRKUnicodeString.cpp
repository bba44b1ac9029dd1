#include "host/core/VRKUnicodeString.h"

#include <cstddef>
#include <cstdint>

namespace {

// Decodes one UTF-8 sequence starting at text[i]; returns the code point and advances i, or
// returns -1 for a malformed sequence (advancing by one byte).
long decodeUtf8(const std::string& text, std::size_t& i) {
    const auto byte = [&](std::size_t k) { return static_cast<std::uint8_t>(text[k]); };
    const std::uint8_t lead = byte(i);
    int extra = 0;
    long code = 0;
    if (lead < 0x80) {
        ++i;
        return lead;
    } else if ((lead & 0xE0) == 0xC0) {
        extra = 1;
        code = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        extra = 2;
        code = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        extra = 3;
        code = lead & 0x07;
    } else {
        ++i;
        return -1;
    }
    if (i + static_cast<std::size_t>(extra) >= text.size()) {
        ++i;
        return -1;
    }
    for (int k = 1; k <= extra; ++k) {
        const std::uint8_t b = byte(i + k);
        if ((b & 0xC0) != 0x80) {
            ++i;
            return -1;
        }
        code = (code << 6) | (b & 0x3F);
    }
    static constexpr long kSmallest[] = {0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[extra]) {
        ++i;
        return -1;
    }
    i += static_cast<std::size_t>(extra) + 1;
    return code;
}

}  // namespace

VRKString VRKUnicodeString::ConvertToChar() const {
    std::string out;
    out.reserve(text_.size());
    for (std::size_t i = 0; i < text_.size();) {
        const long code = decodeUtf8(text_, i);
        out.push_back(code >= 0 && code <= 0xFF ? static_cast<char>(code) : '?');
    }
    return VRKString(std::move(out));
}
