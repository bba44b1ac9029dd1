#pragma once

// The coordinate range of the plotter, in plotter units of 0.025 mm (40 to the millimetre).
// HP-GL/2 coordinates run from -2^30 to 2^30 - 1 units. A length or coordinate that a program
// hands a generator in millimetres fits when its units lie within 2^30 - 1 either way; the
// difference of two such values (a relative move) then always fits 32 bits.
//
// The job player refuses a length that does not fit, and the readers of settings and pen tables
// do not take one. The driver itself takes any value and holds the conversions that overflow at
// the limits of their integers (VRKSaturatingTrunc).
namespace VRKPlotterRange {

inline constexpr double kUnitsPerMillimetre = 40.0;
// 2^30 - 1 plotter units, 26843545.575 mm (about 26.8 km).
inline constexpr double kLargestUnits = 1073741823.0;
// The largest float whose units fit: the float after it, 26843546, comes to 1073741840 units.
inline constexpr float kLargestMillimetres = 26843544.0f;
static_assert(static_cast<double>(kLargestMillimetres) * kUnitsPerMillimetre <= kLargestUnits &&
              26843546.0 * kUnitsPerMillimetre > kLargestUnits);

// True when the float `millimetres`, the form in which hosts pass lengths and coordinates, comes
// to at most 2^30 - 1 plotter units either way; false for NaN and the infinities. For a float
// that is the same as lying within kLargestMillimetres either way, which is what is compared.
constexpr bool FitsMillimetres(float millimetres) {
    return millimetres <= kLargestMillimetres && millimetres >= -kLargestMillimetres;
}

}  // namespace VRKPlotterRange
