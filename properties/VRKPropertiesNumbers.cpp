#include "properties/VRKPropertiesNumbers.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The white space "%d" skips in the C locale.
bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

}  // namespace

VRKPropertiesNumbers::Reading VRKPropertiesNumbers::ScanInteger(const char* text, int& value) {
    if (text == nullptr) {
        return Reading::kNone;
    }
    const char* p = text;
    while (isSpace(*p)) {
        ++p;
    }
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+') {
        ++p;
    }
    const char* const whole = p;
    while (isDigit(*p)) {
        ++p;
    }
    const char* const wholeEnd = p;
    const char* fraction = p;
    const char* fractionEnd = p;
    if (*p == '.') {
        fraction = fractionEnd = p + 1;
        while (isDigit(*fractionEnd)) {
            ++fractionEnd;
        }
    }
    if (wholeEnd == whole && fractionEnd == fraction) {
        return Reading::kNone;
    }
    p = *wholeEnd == '.' ? fractionEnd : wholeEnd;
    // The exponent, when there are digits after the e; its size is held far beyond any that
    // leaves an int (with the digits of the text, whatever their number, it cannot overflow).
    long long exponent = 0;
    if (*p == 'e' || *p == 'E') {
        const char* e = p + 1;
        const bool negativeExponent = *e == '-';
        if (*e == '-' || *e == '+') {
            ++e;
        }
        while (isDigit(*e)) {
            if (exponent < 1000000000) {
                exponent = exponent * 10 + (*e - '0');
            }
            ++e;
        }
        exponent = negativeExponent ? -exponent : exponent;
    }
    // The digits before the point once the exponent has moved it, truncated toward zero. The
    // magnitude stops growing past 2^31, which no int takes; while it is 0 (leading zeros) it
    // cannot grow from the zeros the exponent appends, so the loop ends after the digits.
    constexpr std::uint64_t kBeyond = std::uint64_t{1} << 31;
    const long long point = static_cast<long long>(wholeEnd - whole) + exponent;
    std::uint64_t magnitude = 0;
    long long taken = 0;
    for (const char* d = whole; taken < point && magnitude <= kBeyond; ++taken) {
        if (d == wholeEnd) {
            d = fraction;
        }
        if (d == fractionEnd) {
            if (magnitude == 0) {
                break;
            }
            magnitude *= 10;
            continue;
        }
        magnitude = magnitude * 10 + static_cast<unsigned>(*d - '0');
        ++d;
    }
    if (magnitude > (negative ? kBeyond : kBeyond - 1)) {
        return Reading::kOutOfRange;
    }
    value = negative ? static_cast<int>(-static_cast<long long>(magnitude))
                     : static_cast<int>(magnitude);
    return Reading::kValue;
}

VRKPropertiesNumbers::Reading VRKPropertiesNumbers::ScanReal(const char* text, double& value) {
    if (text == nullptr) {
        return Reading::kNone;
    }
    char* end = nullptr;
    const double v = std::strtod(text, &end);
    if (end == text) {
        return Reading::kNone;
    }
    // strtod gives NaN and the infinities as they are written, and an infinity for a number
    // beyond a double.
    if (!std::isfinite(v)) {
        return Reading::kOutOfRange;
    }
    value = v;
    return Reading::kValue;
}
