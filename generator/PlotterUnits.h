#pragma once

#include "host/core/VRKSaturatingTrunc.h"

// Millimetres to plotter units (0.025 mm, 40 to the millimetre): truncated toward zero, the
// origin offset (plotter units) added, truncated again. There is no rounding to nearest anywhere
// on this path. A value beyond the int (or infinite) is held at the int's limit, NaN gives 0.
inline void toPlotterUnits(float x, float y, float offsetX, float offsetY, int& px, int& py) {
    const int ix = VRKSaturatingTrunc<int>(static_cast<double>(x) * 40.0);
    const int iy = VRKSaturatingTrunc<int>(static_cast<double>(y) * 40.0);
    // Without an offset, and within the 24 bits a float holds exactly, the detour through float
    // gives the integer back unchanged.
    constexpr unsigned kExact = 1u << 24;
    if (offsetX == 0.0f && offsetY == 0.0f && static_cast<unsigned>(ix) + kExact <= 2 * kExact &&
        static_cast<unsigned>(iy) + kExact <= 2 * kExact) {
        px = ix;
        py = iy;
        return;
    }
    px = VRKSaturatingTrunc<int>(static_cast<float>(ix) + offsetX);
    py = VRKSaturatingTrunc<int>(static_cast<float>(iy) + offsetY);
}
