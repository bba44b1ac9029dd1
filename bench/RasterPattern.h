#pragma once

#include <cstdint>

// The pixels of the raster workload: what a scanned map looks like to the plotter. Bands of flat
// colour fields (rows repeat, so delta rows pay), bands of gradients that shift from row to row
// (every byte changes, so raw rows are sent), and a thin grid of lines over both. Deterministic,
// so that every run plots the same picture.
inline void rasterPatternRow(int y, int width, unsigned char* rgb) {
    const bool flat = (y / 350) % 2 == 0;
    for (int x = 0; x < width; ++x) {
        unsigned char r, g, b;
        if ((x % 500) < 2 || (y % 500) < 2) {
            r = g = b = 0;
        } else if (flat) {
            const std::uint32_t field = static_cast<std::uint32_t>((x / 125) * 31 + (y / 70) * 17);
            r = static_cast<unsigned char>(96 + (field * 37) % 160);
            g = static_cast<unsigned char>(96 + (field * 59) % 160);
            b = static_cast<unsigned char>(96 + (field * 83) % 160);
        } else {
            r = static_cast<unsigned char>((x + y) >> 3);
            g = static_cast<unsigned char>((x * 3 + y * 5) >> 4);
            b = static_cast<unsigned char>(255 - ((x + 2 * y) >> 5));
        }
        rgb[3 * x] = r;
        rgb[3 * x + 1] = g;
        rgb[3 * x + 2] = b;
    }
}
