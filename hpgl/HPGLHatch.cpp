// The scan-line hatch of the HP-GL dialect: a pen plotter has no solid fill, so an area is drawn
// as its outline and then as horizontal strokes half a pen width apart, travelling back and forth.

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>

#include "generator/FillArguments.h"
#include "generator/PlotterUnits.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKRawCollPV.h"
#include "host/geometry/VRKPolygonGeometry.h"
#include "host/geometry/VRKSimplifiedPolygon.h"
#include "hpgl/HPGLDialect.h"

namespace {

// Crossings closer than this to the widened box are dropped (millimetres).
constexpr float kBoundsTolerance = 0.001f;
// The box is widened sideways by this much, so that the travel starts off the area.
constexpr float kBoxMargin = 0.01f;
// The plotter unit in millimetres: the smallest step that moves the pen.
constexpr float kPlotterUnit = 0.025f;

// The height of the next scan line, or infinity once adding the step leaves the height as it
// is (far from the origin a float's own step is coarser than the pen's), which ends the hatch.
float nextScanLine(float y, float step) {
    const float next = y + step;
    return next != y ? next : std::numeric_limits<float>::infinity();
}

}  // namespace

void HPGLDialect::Fill(VRKPrintStream& s, const Area& area, HPGLSurface& surface) {
    if (area.fillRule != 1) {
        hatch(s, area, surface);
        return;
    }
    // Without a pen of the table the hatch of every piece draws nothing: the pieces need not be
    // made.
    if (!CurrentPenHatches()) {
        return;
    }
    // The hatch is even-odd: reduce the non-zero area to even-odd pieces first.
    VRKRawCollPV pieces;
    SimplifyPolygonAndGetWindingNumber(area.nbPolygons, area.nbPoints, area.points, pieces);
    for (int i = 1; i <= pieces.Size(); ++i) {
        const auto* piece = static_cast<const VRKSimplifiedPolygon*>(pieces[i]);
        if (piece != nullptr && piece->windingNumber != 0) {
            Area part = area;
            part.nbPolygons = piece->nbPolygons;
            part.nbPoints = piece->nbPoints;
            part.points = piece->points;
            hatch(s, part, surface);
        }
    }
    for (int i = 1; i <= pieces.Size(); ++i) {
        auto* piece = static_cast<VRKSimplifiedPolygon*>(pieces[i]);
        if (piece != nullptr) {
            delete[] piece->nbPoints;
            delete[] piece->points;
            delete piece;
        }
    }
}

void HPGLDialect::hatch(VRKPrintStream& s, const Area& area, HPGLSurface& surface) {
    const int nbPolygons = area.nbPolygons;
    const int* const nbPoints = area.nbPoints;
    const float* const points = area.points;
    const long long total = fillVertexCount(nbPolygons, nbPoints, points);
    if (total < 1) {
        return;
    }
    // Pen 0 and pens outside the table have no width to hatch with, and no ink.
    if (!CurrentPenHatches()) {
        return;
    }
    if (area.fillMode == 2) {
        surface.PatternFill(nbPolygons, nbPoints, points);
        return;
    }
    const int savedSuppress = suppressStrokes;
    suppressStrokes = 1;

    // Outline, and the box of all vertices.
    float xmin = std::numeric_limits<float>::max(), xmax = -xmin;
    float ymin = xmin, ymax = -xmin;
    const float* p = points;
    for (int i = 0; i < nbPolygons; ++i) {
        const int n = nbPoints[i];
        for (int k = 0; k < n; ++k) {
            const float x = p[2 * k], y = p[2 * k + 1];
            if (k == 0) {
                surface.MoveTo(x, y);
            } else {
                surface.LineTo(x, y);
            }
            xmin = std::min(xmin, x);
            xmax = std::max(xmax, x);
            ymin = std::min(ymin, y);
            ymax = std::max(ymax, y);
        }
        if (n > 0) {
            surface.LineTo(p[0], p[1]);
        }
        p += 2 * static_cast<std::ptrdiff_t>(n);
    }
    xmin -= kBoxMargin;
    xmax += kBoxMargin;
    const float step = 0.5f * pens.At(currentPen)->width;

    // A pen without width would never advance the scan line, and one whose step is below a
    // plotter unit would draw the same stroke again and again, the plotter's resolution being
    // coarser than the step: such a pen gets its outline only. So does an area of infinite
    // height, whose scan lines would reach infinity and stay there.
    std::unique_ptr<float[]> crossings(
        new (std::nothrow) float[2 * static_cast<std::size_t>(total)]);
    if (crossings != nullptr && ymin != ymax && step >= kPlotterUnit && std::isfinite(ymin) &&
        std::isfinite(ymax)) {
        bool fromLeft = true;
        for (float y = ymin; y <= ymax; y = nextScanLine(y, step)) {
            int count = 0;
            const auto accept = [&](float x, bool sloped) {
                if (!sloped || (x >= xmin + kBoundsTolerance && x <= xmax - kBoundsTolerance)) {
                    crossings[static_cast<std::size_t>(count++)] = x;
                }
            };
            const float* poly = points;
            for (int i = 0; i < nbPolygons; ++i) {
                const int n = nbPoints[i];
                for (int k = 0; k < n; ++k) {
                    // Edge from vertex k to vertex k + 1, the last one closing back to vertex 0.
                    const float x0 = poly[2 * k], y0 = poly[2 * k + 1];
                    const int next = k + 1 < n ? k + 1 : 0;
                    const float x1 = poly[2 * next], y1 = poly[2 * next + 1];
                    if (y < std::min(y0, y1) || y > std::max(y0, y1)) {
                        continue;
                    }
                    const bool vertical = x0 == x1;
                    const bool sloped = !vertical && y0 != y1;
                    if (y == y0) {
                        if (k == 0) {
                            // The first vertex counts exactly once whenever it lies on the line,
                            // whatever its neighbours. This is how areas have always been
                            // hatched, so an extremum there leaves an odd crossing; kept.
                            accept(x0, sloped);
                        } else {
                            // A vertex on the line belongs to the edge leaving it: once when
                            // that edge rises, once more when the vertex before lies higher. A
                            // local minimum counts twice, a maximum not at all.
                            const float yBefore = poly[2 * (k - 1) + 1];
                            if (y1 > y0) {
                                accept(x0, sloped);
                            }
                            if (yBefore > y0) {
                                accept(x0, sloped);
                            }
                        }
                    } else if (y != y1) {
                        if (vertical) {
                            crossings[static_cast<std::size_t>(count++)] = x0;
                        } else {
                            const float slope = (y1 - y0) / (x1 - x0);
                            const float intercept = y0 - slope * x0;
                            accept((y - intercept) / slope, true);
                        }
                    }
                }
                poly += 2 * static_cast<std::ptrdiff_t>(n);
            }

            std::unique_ptr<int[]> order(
                new (std::nothrow) int[static_cast<std::size_t>(std::max(count, 1))]);
            if (order == nullptr) {
                break;
            }
            SingleSort(crossings.get(), count, order.get());
            surface.MoveTo(fromLeft ? xmin : xmax, y);
            // Spans between crossings 1-2, 3-4, ... are drawn: even-odd.
            const auto crossing = [&](int c) {
                return crossings[static_cast<std::size_t>(fromLeft ? c : count - 1 - c)];
            };
            for (int c = 0; c < count; ++c) {
                const float x = crossing(c);
                if (c % 2 == 0) {
                    if (c + 1 < count && spanBelowPlotterUnit(x, crossing(c + 1), y, area)) {
                        ++c;
                        continue;
                    }
                    surface.MoveTo(x, y);
                } else {
                    surface.LineTo(x, y);
                }
            }
            fromLeft = !fromLeft;
        }
    }
    suppressStrokes = savedSuppress;

    // The hatch was drawn with the fill colour's pen: back to the draw colour's.
    if (area.drawColor != area.fillColor) {
        UseColor(s, area.drawColor);
    }
}

// A span between two different crossings that both fall on the same plotter unit would be a
// stroke of no length: the plotter would lower the pen where it already is. An area of many thin
// slivers would otherwise fill the plot with them. Two equal crossings (a vertex lying on the
// scan line) still touch the paper there.
bool HPGLDialect::spanBelowPlotterUnit(float x0, float x1, float y, const Area& area) const {
    if (x0 == x1) {
        return false;
    }
    int px0, px1, py;
    toPlotterUnits(x0, y, area.offsetX, area.offsetY, px0, py);
    toPlotterUnits(x1, y, area.offsetX, area.offsetY, px1, py);
    return px0 == px1;
}
