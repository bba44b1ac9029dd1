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
    const char* const textEnd = text.data() + text.size();
    if (ScanCommonDecimal(text.data(), textEnd, value) == textEnd) {
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
    const char* const textEnd = text.data() + text.size();
    if (ScanCommonInt(text.data(), textEnd, value) == textEnd) {
        return Status::kOk;
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
