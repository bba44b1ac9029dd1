#include "host/drawing/VRKStrokeTour.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/drawing/VRKEndpointIndex.h"

double VRKStrokeTour::Distance(VRKDrawingPoint a, VRKDrawingPoint b) {
    return std::hypot(double{b.x} - a.x, double{b.y} - a.y);
}

double VRKStrokeTour::Travel(const std::vector<Leg>& tour, VRKDrawingPoint from) {
    double travel = 0.0;
    for (const Leg& leg : tour) {
        travel += Distance(from, leg.start);
        from = leg.end;
    }
    return travel;
}

std::vector<VRKStrokeTour::Leg> VRKStrokeTour::Greedy(const std::vector<Leg>& legs,
                                                      VRKDrawingPoint from) {
    // End 2k is the start of leg k, end 2k + 1 its end. An ellipse has no end of its own: its
    // slot repeats its start and is taken out before the first search.
    std::vector<VRKDrawingPoint> ends;
    ends.reserve(2 * legs.size());
    for (const Leg& leg : legs) {
        ends.push_back(leg.start);
        ends.push_back(leg.end);
    }
    VRKEndpointIndex index(ends);
    for (std::size_t k = 0; k < legs.size(); ++k) {
        if (legs[k].ellipse) {
            index.Remove(static_cast<std::uint32_t>(2 * k + 1));
        }
    }

    std::vector<Leg> tour;
    tour.reserve(legs.size());
    VRKDrawingPoint at = from;
    while (true) {
        const std::uint32_t end = index.Nearest(at);
        if (end == VRKEndpointIndex::kNone) {
            break;
        }
        const std::uint32_t k = end / 2;
        index.Remove(2 * k);
        index.Remove(2 * k + 1);
        Leg leg = legs[k];
        if ((end & 1u) != 0) {
            std::swap(leg.start, leg.end);
            leg.reversed = true;
        }
        at = leg.end;
        tour.push_back(leg);
    }
    return tour;
}

namespace {

// The straight distance without hypot's care for overflow, which floats on a page never need:
// the improvement asks for it several times a stroke.
double quickDistance(VRKDrawingPoint a, VRKDrawingPoint b) {
    const double dx = double{b.x} - a.x;
    const double dy = double{b.y} - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

}  // namespace

void VRKStrokeTour::Improve(std::vector<Leg>& tour, VRKDrawingPoint from, std::uint32_t window,
                            int passes) {
    const std::size_t n = tour.size();
    for (int pass = 0; pass < passes; ++pass) {
        bool improved = false;
        for (std::size_t i = 0; i < n; ++i) {
            const VRKDrawingPoint before = i == 0 ? from : tour[i - 1].end;
            const std::size_t last = std::min(n, i + window);
            double into = quickDistance(before, tour[i].start);
            for (std::size_t j = i; j < last; ++j) {
                // Reversing legs i..j: the pen comes from `before` to the end of leg j instead of
                // the start of leg i, and leaves the start of leg i for the leg after j instead of
                // leaving the end of leg j.
                double change = quickDistance(before, tour[j].end) - into;
                if (j + 1 < n) {
                    change += quickDistance(tour[i].start, tour[j + 1].start) -
                              quickDistance(tour[j].end, tour[j + 1].start);
                }
                // A margin, so that rounding alone never reverses anything.
                if (change < -1e-9) {
                    std::reverse(tour.begin() + static_cast<std::ptrdiff_t>(i),
                                 tour.begin() + static_cast<std::ptrdiff_t>(j) + 1);
                    for (std::size_t k = i; k <= j; ++k) {
                        std::swap(tour[k].start, tour[k].end);
                        tour[k].reversed = !tour[k].reversed;
                    }
                    into = quickDistance(before, tour[i].start);
                    improved = true;
                }
            }
        }
        if (!improved) {
            break;
        }
    }
}
