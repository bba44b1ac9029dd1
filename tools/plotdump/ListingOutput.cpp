#include "tools/plotdump/ListingOutput.h"

#include <charconv>
#include <cmath>

void ListingOutput::Line(std::string_view text) {
    out_ << text << '\n';
}

void ListingOutput::Anomaly(std::uint64_t offset, std::string_view what) {
    ++anomalies_;
    out_ << "! at byte " << offset << ": " << what << '\n';
}

std::string ListingOutput::Escaped(std::string_view bytes, bool quoted) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string text;
    if (quoted) {
        text += '"';
    }
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b == '\\' || (quoted && b == '"')) {
            text += '\\';
            text += c;
        } else if (b == 0x1b) {
            text += "\\e";
        } else if (b == '\t') {
            text += "\\t";
        } else if (b == '\n') {
            text += "\\n";
        } else if (b == '\r') {
            text += "\\r";
        } else if (b < 0x20 || b >= 0x7f) {
            text += "\\x";
            text += kHex[b >> 4];
            text += kHex[b & 15];
        } else {
            text += c;
        }
    }
    if (quoted) {
        text += '"';
    }
    return text;
}

std::string ListingOutput::Number(double value) {
    if (!std::isfinite(value)) {
        return "?";
    }
    // Locale-free, and the same on every run: fixed with three decimals, then trimmed.
    char digits[400];
    const auto result =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 3);
    if (result.ec != std::errc()) {
        return "?";
    }
    std::string text(digits, result.ptr);
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.') {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}
