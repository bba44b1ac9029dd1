#include "host/svg/VRKSvgLength.h"

#include <charconv>
#include <string>

namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// The number at the very start of `text` (no spaces), moving past it.
bool ReadBareNumber(std::string_view& text, double& value) {
    std::string_view rest = text;
    bool negative = false;
    if (!rest.empty() && (rest.front() == '+' || rest.front() == '-')) {
        negative = rest.front() == '-';
        rest.remove_prefix(1);
    }
    if (rest.empty() || rest.front() == '+' || rest.front() == '-') {
        return false;
    }
    double number = 0.0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (error != std::errc() || end == rest.data()) {
        return false;
    }
    value = negative ? -number : number;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

}  // namespace

bool VRKSvgLength::ReadNumber(std::string_view& text, double& value) {
    std::string_view rest = text;
    while (!rest.empty() && IsSpace(rest.front())) {
        rest.remove_prefix(1);
    }
    if (!rest.empty() && rest.front() == ',') {
        rest.remove_prefix(1);
        while (!rest.empty() && IsSpace(rest.front())) {
            rest.remove_prefix(1);
        }
    }
    if (!ReadBareNumber(rest, value)) {
        return false;
    }
    text = rest;
    return true;
}

std::vector<double> VRKSvgLength::ParseList(std::string_view text) {
    std::vector<double> values;
    double value = 0.0;
    while (ReadNumber(text, value)) {
        values.push_back(value);
    }
    return values;
}

bool VRKSvgLength::Parse(std::string_view text, VRKSvgLength& length) {
    text = Trim(text);
    double number = 0.0;
    if (!ReadBareNumber(text, number)) {
        return false;
    }
    static constexpr struct {
        std::string_view name;
        Unit unit;
    } kUnits[] = {{"", Unit::kNone}, {"px", Unit::kPx},    {"mm", Unit::kMm}, {"cm", Unit::kCm},
                  {"in", Unit::kIn}, {"pt", Unit::kPt},    {"pc", Unit::kPc}, {"em", Unit::kEm},
                  {"ex", Unit::kEx}, {"%", Unit::kPercent}};
    for (const auto& known : kUnits) {
        if (text == known.name) {
            length.value = number;
            length.unit = known.unit;
            return true;
        }
    }
    return false;
}

double VRKSvgLength::ToUser(double reference, double fontSize) const {
    switch (unit) {
        case Unit::kNone:
        case Unit::kPx:
            return value;
        case Unit::kMm:
            return value / kMmPerPx;
        case Unit::kCm:
            return value * 10.0 / kMmPerPx;
        case Unit::kIn:
            return value * kPxPerInch;
        case Unit::kPt:
            return value * kPxPerInch / 72.0;
        case Unit::kPc:
            return value * kPxPerInch / 6.0;
        case Unit::kEm:
            return value * fontSize;
        case Unit::kEx:
            return value * fontSize / 2.0;
        case Unit::kPercent:
            return value * reference / 100.0;
    }
    return value;
}

bool VRKSvgLength::ToMillimetres(double& millimetres) const {
    switch (unit) {
        case Unit::kNone:
        case Unit::kPx:
            millimetres = value * kMmPerPx;
            return true;
        case Unit::kMm:
            millimetres = value;
            return true;
        case Unit::kCm:
            millimetres = value * 10.0;
            return true;
        case Unit::kIn:
            millimetres = value * 25.4;
            return true;
        case Unit::kPt:
            millimetres = value * 25.4 / 72.0;
            return true;
        case Unit::kPc:
            millimetres = value * 25.4 / 6.0;
            return true;
        default:
            return false;
    }
}
