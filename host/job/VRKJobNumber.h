#pragma once

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

}  // namespace VRKJobNumber
