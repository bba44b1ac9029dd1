// The host's pattern fill: a 45-degree hatch that honours the fill rule.

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "host/core/VRKPrintGenerator.h"

namespace {

// Distance between hatch lines, millimetres.
constexpr double kHatchSpacing = 1.0;
// The hatch runs along (1, 1) / sqrt(2); lines are spaced along (-1, 1) / sqrt(2).
constexpr double kHalfRoot2 = 0.70710678118654752440;

struct Crossing {
    double along;   // position along the hatch line
    int direction;  // +1 where the edge runs up across the line, -1 down
};

}  // namespace

void VRKPrintGenerator::FillPatternPolygon(int nbPolygons, const int* nbPoints,
                                           const float* points) {
    if (nbPolygons < 1 || nbPoints == nullptr || points == nullptr) {
        return;
    }
    std::size_t total = 0;
    for (int i = 0; i < nbPolygons; ++i) {
        if (nbPoints[i] < 0) {
            return;
        }
        total += static_cast<std::size_t>(nbPoints[i]);
    }
    if (total == 0) {
        return;
    }
    // Rotated coordinates: u along the hatch, v across it.
    std::vector<double> u(total), v(total);
    double vmin = std::numeric_limits<double>::max(), vmax = -vmin;
    for (std::size_t k = 0; k < total; ++k) {
        const double x = points[2 * k], y = points[2 * k + 1];
        if (!std::isfinite(x) || !std::isfinite(y)) {
            return;
        }
        u[k] = (x + y) * kHalfRoot2;
        v[k] = (y - x) * kHalfRoot2;
        vmin = std::min(vmin, v[k]);
        vmax = std::max(vmax, v[k]);
    }
    const bool nonZero = GetPolygonFillRule() == 1;
    std::vector<Crossing> crossings;
    // Lines on the global grid v = k * spacing, so neighbouring areas share their hatch.
    const double first = std::ceil(vmin / kHatchSpacing);
    const double last = std::floor(vmax / kHatchSpacing);
    for (double line = first; line <= last && line - first < 1.0e6;) {
        const double vl = line * kHatchSpacing;
        crossings.clear();
        std::size_t start = 0;
        for (int i = 0; i < nbPolygons; ++i) {
            const std::size_t n = static_cast<std::size_t>(nbPoints[i]);
            for (std::size_t k = 0; k < n; ++k) {
                const std::size_t a = start + k, b = start + (k + 1 < n ? k + 1 : 0);
                // Half-open rule: an edge covers [low, high) in v, so a vertex on the line is
                // counted once.
                if ((v[a] <= vl && vl < v[b]) || (v[b] <= vl && vl < v[a])) {
                    const double t = (vl - v[a]) / (v[b] - v[a]);
                    crossings.push_back({u[a] + t * (u[b] - u[a]), v[b] > v[a] ? 1 : -1});
                }
            }
            start += n;
        }
        std::sort(crossings.begin(), crossings.end(),
                  [](const Crossing& l, const Crossing& r) { return l.along < r.along; });
        int winding = 0;
        for (std::size_t c = 0; c + 1 < crossings.size(); ++c) {
            winding += crossings[c].direction;
            const bool inside = nonZero ? winding != 0 : (c % 2) == 0;
            if (inside && crossings[c + 1].along > crossings[c].along) {
                const double u0 = crossings[c].along, u1 = crossings[c + 1].along;
                DrvMoveTo(static_cast<float>((u0 - vl) * kHalfRoot2),
                          static_cast<float>((u0 + vl) * kHalfRoot2));
                DrvLineTo(static_cast<float>((u1 - vl) * kHalfRoot2),
                          static_cast<float>((u1 + vl) * kHalfRoot2));
            }
        }
        // Beyond 2^53 a step of 1 no longer moves the line: the hatch ends instead of drawing
        // the same line for ever.
        const double next = line + 1.0;
        if (next == line) {
            break;
        }
        line = next;
    }
    const float* p = points;
    for (int i = 0; i < nbPolygons; ++i) {
        if (nbPoints[i] > 0) {
            DrvDrawPolygon(nbPoints[i], p);
        }
        p += 2 * static_cast<std::ptrdiff_t>(nbPoints[i]);
    }
}
