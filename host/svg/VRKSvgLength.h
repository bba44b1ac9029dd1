#pragma once

#include <string_view>
#include <vector>

// A length or number of an SVG attribute or property: a number and its unit.
class VRKSvgLength {
  public:
    enum class Unit { kNone, kPx, kMm, kCm, kIn, kPt, kPc, kEm, kEx, kPercent };
    static constexpr double kPxPerInch = 96.0;
    static constexpr double kMmPerPx = 25.4 / kPxPerInch;

    double value = 0.0;
    Unit unit = Unit::kNone;

    // The whole text (spaces around allowed) as a length; false when it is not one.
    static bool Parse(std::string_view text, VRKSvgLength& length);
    // Reads a number at the start of `text` (after spaces and one comma) and moves past it.
    static bool ReadNumber(std::string_view& text, double& value);
    // Numbers separated by spaces and/or commas, up to the first that is not one.
    static std::vector<double> ParseList(std::string_view text);

    // In user units: `reference` is what 100% is, `fontSize` what 1em is.
    double ToUser(double reference, double fontSize) const;
    // In millimetres (no unit is px); false for a percentage or a font-relative unit.
    bool ToMillimetres(double& millimetres) const;
};
