#include "host/job/VRKJobNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace VRKJobNumber {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Skips a leading '+', which std::from_chars does not take; a '-' stays for it.
std::string_view withoutPlus(std::string_view text) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    return text;
}

bool isInteger(std::string_view text) {
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        ++i;
    }
    if (i == text.size()) {
        return false;
    }
    for (; i < text.size(); ++i) {
        if (!isDigit(text[i])) {
            return false;
        }
    }
    return true;
}

// Powers of ten a double holds exactly.
constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// The common case read in one pass: an optional sign, at most 19 digits around an optional
// point, an optional exponent of at most four digits, and a value whose digits and power of ten
// are both exact in a double. One multiplication or division of two exact doubles is then
// correctly rounded, so the result is the one std::from_chars gives. False for anything else,
// which the careful path reads.
bool parseShortDecimal(std::string_view text, double& value) {
    const char* p = text.data();
    const char* const end = p + text.size();
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    std::uint64_t digits = 0;
    int count = 0;
    int decimals = 0;
    while (p != end && isDigit(*p)) {
        digits = digits * 10 + static_cast<unsigned>(*p - '0');
        ++count;
        ++p;
    }
    if (p != end && *p == '.') {
        ++p;
        const char* const first = p;
        while (p != end && isDigit(*p)) {
            digits = digits * 10 + static_cast<unsigned>(*p - '0');
            ++p;
        }
        decimals = static_cast<int>(p - first);
        count += decimals;
    }
    if (count == 0 || count > 19) {
        return false;
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
        while (p != end && isDigit(*p) && p - first < 4) {
            exponent = exponent * 10 + (*p - '0');
            ++p;
        }
        if (p == first) {
            return false;
        }
        exponent = negativeExponent ? -exponent : exponent;
    }
    if (p != end || digits > (std::uint64_t{1} << 53)) {
        return false;
    }
    const int power = exponent - decimals;
    if (power < -22 || power > 22) {
        return false;
    }
    double v = static_cast<double>(digits);
    v = power < 0 ? v / kExactPowers[-power] : v * kExactPowers[power];
    value = negative ? -v : v;
    return true;
}

}  // namespace

bool IsDecimal(std::string_view text) {
    std::size_t i = 0;
    const std::size_t n = text.size();
    if (i < n && (text[i] == '+' || text[i] == '-')) {
        ++i;
    }
    std::size_t digits = 0;
    while (i < n && isDigit(text[i])) {
        ++i;
        ++digits;
    }
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && isDigit(text[i])) {
            ++i;
            ++digits;
        }
    }
    if (digits == 0) {
        return false;
    }
    if (i < n && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < n && (text[i] == '+' || text[i] == '-')) {
            ++i;
        }
        std::size_t exponentDigits = 0;
        while (i < n && isDigit(text[i])) {
            ++i;
            ++exponentDigits;
        }
        if (exponentDigits == 0) {
            return false;
        }
    }
    return i == n;
}

Status ParseDouble(std::string_view text, double& value) {
    if (parseShortDecimal(text, value)) {
        return Status::kOk;
    }
    if (!IsDecimal(text)) {
        return Status::kNotANumber;
    }
    const std::string_view digits = withoutPlus(text);
    double parsed = 0.0;
    const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), parsed);
    if (ec == std::errc::result_out_of_range) {
        return Status::kOutOfRange;
    }
    if (ec != std::errc{} || end != digits.data() + digits.size() || !std::isfinite(parsed)) {
        return Status::kNotANumber;
    }
    value = parsed;
    return Status::kOk;
}

Status ParseFloat(std::string_view text, float& value) {
    double parsed = 0.0;
    const Status status = ParseDouble(text, parsed);
    if (status != Status::kOk) {
        return status;
    }
    // Narrowing a double beyond the float range is undefined, so it is checked first.
    if (std::fabs(parsed) > static_cast<double>(std::numeric_limits<float>::max())) {
        return Status::kOutOfRange;
    }
    value = static_cast<float>(parsed);
    return Status::kOk;
}

Status ParseInt(std::string_view text, int& value) {
    // The common case: a sign and up to nine digits always fit.
    if (!text.empty() && text.size() <= 10) {
        std::size_t i = text[0] == '+' || text[0] == '-' ? 1 : 0;
        if (i < text.size() && text.size() - i <= 9) {
            int parsed = 0;
            while (i < text.size() && isDigit(text[i])) {
                parsed = parsed * 10 + (text[i] - '0');
                ++i;
            }
            if (i == text.size()) {
                value = text[0] == '-' ? -parsed : parsed;
                return Status::kOk;
            }
        }
    }
    if (!isInteger(text)) {
        return IsDecimal(text) ? Status::kNotAnInteger : Status::kNotANumber;
    }
    const std::string_view digits = withoutPlus(text);
    int parsed = 0;
    const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), parsed);
    if (ec == std::errc::result_out_of_range) {
        return Status::kOutOfRange;
    }
    if (ec != std::errc{} || end != digits.data() + digits.size()) {
        return Status::kNotANumber;
    }
    value = parsed;
    return Status::kOk;
}

}  // namespace VRKJobNumber
