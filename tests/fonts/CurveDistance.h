#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

// Measures how far a flattened curve strays from the curve it stands for. A curve is given as
// pieces, each a function of t from 0 to 1 (a Bézier segment, an arc); the flattening as the
// polyline of its points.
namespace curve_distance {

struct Point {
    double x = 0.0;
    double y = 0.0;
};

using Piece = std::function<Point(double)>;

inline double distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

inline double distanceToSegment(Point p, Point a, Point b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    double t = length2 > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2 : 0.0;
    t = std::clamp(t, 0.0, 1.0);
    return distance(p, {a.x + t * dx, a.y + t * dy});
}

// Number of parameter samples per piece when looking for the nearest point.
constexpr int kCoarseSamples = 256;

// Distance from p to the nearest point of the pieces: a coarse sampling, then a ternary search
// of the distance around every local minimum of the samples (over the two neighbouring sample
// steps, where it has a single minimum). Every local minimum, not only the least sample: where a
// curve loops back past itself the least sample can lie on the wrong branch. The result is the
// true distance to about 1e-12 mm.
inline double distanceToCurve(Point p, const std::vector<Piece>& pieces) {
    double best = std::numeric_limits<double>::infinity();
    std::vector<double> d(kCoarseSamples + 1);
    for (const Piece& piece : pieces) {
        for (int i = 0; i <= kCoarseSamples; ++i) {
            d[i] = distance(p, piece(static_cast<double>(i) / kCoarseSamples));
            best = std::min(best, d[i]);
        }
        for (int i = 0; i <= kCoarseSamples; ++i) {
            const bool leftHigher = i == 0 || d[i - 1] >= d[i];
            const bool rightHigher = i == kCoarseSamples || d[i + 1] >= d[i];
            if (!leftHigher || !rightHigher) {
                continue;
            }
            double lo = std::max(0.0, (i - 1.0) / kCoarseSamples);
            double hi = std::min(1.0, (i + 1.0) / kCoarseSamples);
            for (int k = 0; k < 100; ++k) {
                const double m1 = lo + (hi - lo) / 3.0, m2 = hi - (hi - lo) / 3.0;
                if (distance(p, piece(m1)) < distance(p, piece(m2))) {
                    hi = m2;
                } else {
                    lo = m1;
                }
            }
            best = std::min(best, distance(p, piece((lo + hi) / 2.0)));
        }
    }
    return best;
}

// Largest distance from a point of a chord to the curve, sampling every chord of the polyline
// at `samples` + 1 points (its ends included).
inline double chordsToCurve(const std::vector<Point>& polyline, const std::vector<Piece>& pieces,
                            int samples = 16) {
    double worst = 0.0;
    for (std::size_t i = 0; i + 1 < polyline.size(); ++i) {
        const Point a = polyline[i], b = polyline[i + 1];
        for (int k = 0; k <= samples; ++k) {
            const double t = static_cast<double>(k) / samples;
            const Point p{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
            worst = std::max(worst, distanceToCurve(p, pieces));
        }
    }
    return worst;
}

// Largest distance from a point of the curve to the polyline, sampling every piece at
// `samples` + 1 points: catches a stretch of curve the chords leave out.
inline double curveToChords(const std::vector<Point>& polyline, const std::vector<Piece>& pieces,
                            int samples = 1024) {
    double worst = 0.0;
    for (const Piece& piece : pieces) {
        for (int k = 0; k <= samples; ++k) {
            const Point p = piece(static_cast<double>(k) / samples);
            double nearest = std::numeric_limits<double>::infinity();
            for (std::size_t i = 0; i + 1 < polyline.size(); ++i) {
                nearest = std::min(nearest, distanceToSegment(p, polyline[i], polyline[i + 1]));
            }
            if (polyline.size() == 1) {
                nearest = distance(p, polyline[0]);
            }
            worst = std::max(worst, nearest);
        }
    }
    return worst;
}

}  // namespace curve_distance
