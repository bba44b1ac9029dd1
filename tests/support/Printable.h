#pragma once

#include <cstdio>
#include <string>
#include <string_view>

// Plot bytes made readable for test failures: ESC as "\e", other control and non-ASCII bytes as
// "\xHH".
inline std::string Printable(std::string_view bytes) {
    std::string out;
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b == 0x1b) {
            out += "\\e";
        } else if (b == '\\') {
            out += "\\\\";
        } else if (b < 0x20 || b >= 0x7f) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", b);
            out += hex;
        } else {
            out += c;
        }
    }
    return out;
}

// Compares plot bytes and shows both sides readably when they differ.
#define EXPECT_BYTES(expected, actual) EXPECT_EQ(Printable(expected), Printable(actual))
