#include "host/job/VRKJobNumber.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace VRKJobNumber {

namespace {

// Skips a leading '+', which std::from_chars does not take; a '-' stays for it.
const char* withoutPlus(const char* first, const char* last) {
    return first != last && *first == '+' ? first + 1 : first;
}

}  // namespace

Status ConvertUncommonDecimal(const char* first, const char* last, Target target, double& value) {
    first = withoutPlus(first, last);
    double parsed = 0.0;
    const auto [end, ec] = std::from_chars(first, last, parsed);
    if (ec == std::errc::result_out_of_range) {
        return Status::kOutOfRange;
    }
    if (ec != std::errc{} || end != last || !std::isfinite(parsed)) {
        return Status::kNotANumber;
    }
    // Narrowing a double beyond the float range is undefined, so it is checked first.
    if (target == Target::kFloat &&
        std::fabs(parsed) > static_cast<double>(std::numeric_limits<float>::max())) {
        return Status::kOutOfRange;
    }
    value = parsed;
    return Status::kOk;
}

Status ConvertUncommonInteger(const char* first, const char* last, int& value) {
    first = withoutPlus(first, last);
    int parsed = 0;
    const auto [end, ec] = std::from_chars(first, last, parsed);
    if (ec == std::errc::result_out_of_range) {
        return Status::kOutOfRange;
    }
    if (ec != std::errc{} || end != last) {
        return Status::kNotANumber;
    }
    value = parsed;
    return Status::kOk;
}

bool IsDecimal(std::string_view text) {
    const char* const end = text.data() + text.size();
    double value = 0.0;
    Status status = Status::kOk;
    return ReadDecimal(text.data(), end, Target::kDouble, value, status) == end &&
           status != Status::kNotANumber;
}

Status ParseDouble(std::string_view text, double& value) {
    const char* const end = text.data() + text.size();
    double parsed = 0.0;
    Status status = Status::kOk;
    if (ReadDecimal(text.data(), end, Target::kDouble, parsed, status) != end) {
        return Status::kNotANumber;
    }
    if (status == Status::kOk) {
        value = parsed;
    }
    return status;
}

Status ParseFloat(std::string_view text, float& value) {
    const char* const end = text.data() + text.size();
    double parsed = 0.0;
    Status status = Status::kOk;
    if (ReadDecimal(text.data(), end, Target::kFloat, parsed, status) != end) {
        return Status::kNotANumber;
    }
    if (status == Status::kOk) {
        value = static_cast<float>(parsed);
    }
    return status;
}

Status ParseInt(std::string_view text, int& value) {
    const char* const end = text.data() + text.size();
    int parsed = 0;
    Status status = Status::kOk;
    if (ReadInteger(text.data(), end, parsed, status) != end) {
        return IsDecimal(text) ? Status::kNotAnInteger : Status::kNotANumber;
    }
    if (status == Status::kOk) {
        value = parsed;
    }
    return status;
}

}  // namespace VRKJobNumber
