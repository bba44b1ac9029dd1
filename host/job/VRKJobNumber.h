#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

// Numbers of job files. A number is written in decimal as the C locale writes it: an optional
// sign, digits with an optional decimal point (at least one digit before or after it), and an
// optional exponent ("10", "-0.0249", "+1.5e3", ".5", "7."). No hexadecimal, no "inf" or "nan",
// no blanks, no thousands separators. Parsing never looks at the process locale.
//
// ReadDecimal and ReadInteger are the one reading of numbers: the lexed tokens of the general
// path and the read buffer of common lines both go through them.
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

// What a decimal number is read for: a double, or a float by way of a double (the value is
// then one that narrows to the same float as the correctly rounded double).
enum class Target { kDouble, kFloat };

// The end of text that ends in a byte no number holds (a line end, a mark put after the read
// bytes): the readers need not watch for it.
struct Unbounded {};

constexpr bool Before(const char* p, const char* end) {
    return p != end;
}
constexpr bool Before(const char*, Unbounded) {
    return true;
}
constexpr bool IsDigit(char c) {
    return static_cast<unsigned>(c - '0') < 10u;
}

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

// Powers of ten a double holds exactly, and the doubles nearest their inverses.
inline constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                               1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr double kInversePowersOfTen[] = {
    1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
    1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};

// The value of the number in [first, last) that does not have the common form below (many
// digits, a large exponent), by the standard library's correctly rounded conversion.
Status ConvertUncommonDecimal(const char* first, const char* last, Target target, double& value);
Status ConvertUncommonInteger(const char* first, const char* last, int& value);

// digits / 10^decimals, read for `target`. The division of two exact doubles gives the correctly
// rounded quotient. For a float, a multiplication by the double nearest 10^-decimals comes within
// two units of its last place, and narrowing either to a float gives the same float unless the
// quotient lies next to the midpoint of two floats (the 29 bits a float drops are then near
// 2^28): there, and only there, the division is made.
inline double Quotient(std::uint64_t digits, int decimals, Target target) {
    if (target == Target::kFloat) {
        const double q = static_cast<double>(digits) * kInversePowersOfTen[decimals];
        std::uint64_t bits;
        std::memcpy(&bits, &q, sizeof bits);
        constexpr std::uint64_t kDropped = (std::uint64_t{1} << 29) - 1;
        constexpr std::uint64_t kMidpoint = std::uint64_t{1} << 28;
        if ((bits & kDropped) - (kMidpoint - 8) > 16) {
            return q;
        }
    }
    return static_cast<double>(digits) / kExactPowersOfTen[decimals];
}

// Reads the decimal number that starts at `p` and returns where it ends: the caller checks what
// follows. The common form (at most 19 digits around the point, digits and a power of ten that
// are both exact in a double) is read in one pass; any other goes to the careful conversion.
// `status` is kNotANumber when no number starts at `p` (the return value is then where the
// reading stopped), kOutOfRange beyond the range of the target. A value of the common form
// never exceeds the float range.
template <typename End>
inline const char* ReadDecimal(const char* p, End end, Target target, double& value,
                               Status& status) {
    const char* const start = p;
    bool negative = false;
    if (Before(p, end) && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    std::uint64_t digits = 0;
    const char* const first = p;
    while (Before(p, end) && IsDigit(*p)) {
        digits = digits * 10 + static_cast<unsigned>(*p - '0');
        ++p;
    }
    int count = static_cast<int>(p - first);
    int decimals = 0;
    if (Before(p, end) && *p == '.') {
        ++p;
        const char* const fraction = p;
        while (Before(p, end) && IsDigit(*p)) {
            digits = digits * 10 + static_cast<unsigned>(*p - '0');
            ++p;
        }
        decimals = static_cast<int>(p - fraction);
        count += decimals;
    }
    status = Status::kNotANumber;
    if (count == 0) {
        return p;
    }
    int exponent = 0;
    if (Before(p, end) && (*p == 'e' || *p == 'E')) {
        ++p;
        bool negativeExponent = false;
        if (Before(p, end) && (*p == '+' || *p == '-')) {
            negativeExponent = *p == '-';
            ++p;
        }
        const char* const exponentStart = p;
        while (Before(p, end) && IsDigit(*p)) {
            // Beyond four digits the exponent is far out of the common form: it stops growing.
            exponent = exponent < 10000 ? exponent * 10 + (*p - '0') : exponent;
            ++p;
        }
        if (p == exponentStart) {
            return p;
        }
        exponent = negativeExponent ? -exponent : exponent;
    }
    const int power = exponent - decimals;
    if (count > 19 || digits > (std::uint64_t{1} << 53) || power < -22 || power > 22) {
        status = ConvertUncommonDecimal(start, p, target, value);
        return p;
    }
    status = Status::kOk;
    const double v = power < 0 ? Quotient(digits, -power, target)
                               : static_cast<double>(digits) * kExactPowersOfTen[power];
    value = negative ? -v : v;
    return p;
}

// Reads the integer (an optional sign and digits) that starts at `p` and returns where it ends;
// `status` as for ReadDecimal, kOutOfRange beyond the range of int.
template <typename End>
inline const char* ReadInteger(const char* p, End end, int& value, Status& status) {
    const char* const start = p;
    bool negative = false;
    if (Before(p, end) && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    const char* const first = p;
    std::uint64_t v = 0;
    while (Before(p, end) && IsDigit(*p)) {
        v = v * 10 + static_cast<unsigned>(*p - '0');
        ++p;
    }
    if (p == first) {
        status = Status::kNotANumber;
        return p;
    }
    if (p - first > 18) {
        status = ConvertUncommonInteger(start, p, value);
        return p;
    }
    if (v > (negative ? std::uint64_t{2147483648} : std::uint64_t{2147483647})) {
        status = Status::kOutOfRange;
        return p;
    }
    status = Status::kOk;
    value = negative ? static_cast<int>(-static_cast<std::int64_t>(v)) : static_cast<int>(v);
    return p;
}

}  // namespace VRKJobNumber
