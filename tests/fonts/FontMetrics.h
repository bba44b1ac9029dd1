#pragma once

// Metrics of DejaVu Sans 2.37 (Debian fonts-dejavu-core), in font units of 2048 to the em, as its
// hmtx, glyf and kern tables give them. The tests compute the expected geometry from these.
namespace dejavu {

constexpr const char* kPath = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr double kUnitsPerEm = 2048.0;
// Top of "H": the cap height the outliner takes as the text size.
constexpr double kCapHeight = 1493.0;
constexpr double kDescender = -483.0;

// Advance widths.
constexpr double kAdvanceH = 1540.0, kAdvanceE = 1294.0, kAdvanceL = 1141.0, kAdvanceO = 1612.0;
constexpr double kAdvanceA = 1401.0, kAdvanceSpace = 651.0, kAdvanceNotdef = 1229.0;

// Glyph boxes (on-curve extremes).
constexpr double kHLeft = 201.0, kHRight = 1339.0, kHTop = 1493.0;
constexpr double kOLeft = 115.0, kORight = 1497.0, kOBottom = -29.0, kOTop = 1520.0;
constexpr double kVRight = 1384.0;
constexpr double kNotdefLeft = 102.0, kNotdefRight = 1126.0, kNotdefBottom = -362.0,
                 kNotdefTop = 1444.0;

// Kerning pairs.
constexpr double kKernLO = -73.0, kKernAV = -131.0;

}  // namespace dejavu
