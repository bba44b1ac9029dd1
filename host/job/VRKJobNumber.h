#pragma once

#include <cstdint>
#include <string_view>

// Numbers of job files. A number is written in decimal as the C locale writes it: an optional
// sign, digits with an optional decimal point (at least one digit before or after it), and an
// optional exponent ("10", "-0.0249", "+1.5e3", ".5", "7."). No hexadecimal, no "inf" or "nan",
// no blanks, no thousands separators. Parsing never looks at the process locale.
namespace VRKJobNumber {

enum class Status {
    kOk,
    // Not a decimal number at all.
    kNotANumber,
    // A decimal number, but not an integer where one is required.
    kNotAnInteger,
    // A number that does not fit the type it is read as.
    kOutOfRange,
};

// True when `text` is a decimal number of the form above.
bool IsDecimal(std::string_view text);
// A decimal number as a double; kOutOfRange when it overflows or underflows a double.
Status ParseDouble(std::string_view text, double& value);
// A decimal number read as a double and then narrowed to float, as a host passes coordinates;
// kOutOfRange when the value lies beyond the largest finite float.
Status ParseFloat(std::string_view text, float& value);
// An integer token: an optional sign and digits only. "3.0" and "1e2" are numbers but not
// integers. kOutOfRange outside the range of int.
Status ParseInt(std::string_view text, int& value);

// Powers of ten a double holds exactly.
inline constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                               1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Reads the common form of a number that starts at `p`, in one pass: an optional sign, at most 19
// digits around an optional point, an optional exponent of at most four digits, with digits and
// a power of ten that are both exact in a double. One multiplication or division of two exact
// doubles is then correctly rounded, so the value is the one ParseDouble gives. Returns where
// the number ends (the caller checks what follows), or null for any other text, which the
// careful ParseDouble reads. The value never exceeds the float range.
inline const char* ScanCommonDecimal(const char* p, const char* end, double& value) {
    const auto digit = [](char c) { return static_cast<unsigned>(c - '0') < 10u; };
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    std::uint64_t digits = 0;
    const char* const start = p;
    while (p != end && digit(*p)) {
        digits = digits * 10 + static_cast<unsigned>(*p - '0');
        ++p;
    }
    int count = static_cast<int>(p - start);
    int decimals = 0;
    if (p != end && *p == '.') {
        ++p;
        const char* const first = p;
        while (p != end && digit(*p)) {
            digits = digits * 10 + static_cast<unsigned>(*p - '0');
            ++p;
        }
        decimals = static_cast<int>(p - first);
        count += decimals;
    }
    if (count == 0 || count > 19) {
        return nullptr;
    }
    int exponent = 0;
    if (p != end && (*p == 'e' || *p == 'E')) {
        ++p;
        bool negativeExponent = false;
        if (p != end && (*p == '+' || *p == '-')) {
            negativeExponent = *p == '-';
            ++p;
        }
        const char* const first = p;
        while (p != end && digit(*p) && p - first < 4) {
            exponent = exponent * 10 + (*p - '0');
            ++p;
        }
        if (p == first || (p != end && digit(*p))) {
            return nullptr;
        }
        exponent = negativeExponent ? -exponent : exponent;
    }
    const int power = exponent - decimals;
    if (digits > (std::uint64_t{1} << 53) || power < -22 || power > 22) {
        return nullptr;
    }
    double v = static_cast<double>(digits);
    v = power < 0 ? v / kExactPowersOfTen[-power] : v * kExactPowersOfTen[power];
    value = negative ? -v : v;
    return p;
}

// Reads the common form of an integer that starts at `p`: an optional sign and one to nine
// digits, which always fit an int. Returns where it ends, or null for any other text.
inline const char* ScanCommonInt(const char* p, const char* end, int& value) {
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    const char* const start = p;
    int v = 0;
    while (p != end && static_cast<unsigned>(*p - '0') < 10u && p - start < 9) {
        v = v * 10 + (*p - '0');
        ++p;
    }
    if (p == start || (p != end && static_cast<unsigned>(*p - '0') < 10u)) {
        return nullptr;
    }
    value = negative ? -v : v;
    return p;
}

}  // namespace VRKJobNumber
