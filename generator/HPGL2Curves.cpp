// Curves the plotter draws natively: Bézier chains (BZ), full circles and full ellipses (AA, WG
// in a stretched user scale). Everything else goes to the host's flattening.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kRadiansToDegrees = 180.0 / std::numbers::pi;

// Largest extent an SC scaling may have: user units must stay within 23 bits.
constexpr float kLargestScale = 8388607.0f;
constexpr float kReducedScale = 8000000.0f;
// Curves larger than this (millimetres) are left to the host.
constexpr float kLargestRadius = 10000.0f;

}  // namespace

void VRKPrintHPGL2Generator::DrvDrawPolyBezier(int count, const float* xy) {
    if (count < 4 || xy == nullptr) {
        return;
    }
    if (isHPGL()) {
        VRKPrintFileGenerator::DrvDrawPolyBezier(count, xy);
        return;
    }
    VRKPrintStream& s = out();
    closeEncodedPolyline();
    HPGL2Writer::SelectPen(s, currentDrawColor);
    int px, py;
    toPlotterUnits(xy[0], xy[1], px, py);
    HPGL2Writer::PenUp(s, px, py);
    HPGL2Writer::PenDownHere(s);
    lastEncodedX = px;
    lastEncodedY = py;
    // Callers pass 3k+1 points; a chain with points left over ends with its last whole segment.
    const int segments = std::min((count - 2) / 3 + 1, (count - 1) / 3);
    for (int g = 0; g < segments; ++g) {
        const float* p = xy + 2 + 6 * g;
        const double controls[6] = {p[0] * 40.0, p[1] * 40.0, p[2] * 40.0,
                                    p[3] * 40.0, p[4] * 40.0, p[5] * 40.0};
        HPGL2Writer::Bezier(s, controls);
    }
    // Back to the chain's first point, pen up.
    HPGL2Writer::PenUp(s, px, py);
}

void VRKPrintHPGL2Generator::DrvDrawArcCircle(float cx, float cy, float radius, float start,
                                              float end, int filled) {
    if (radius <= 0.0f) {
        return;
    }
    if (start > end) {
        end = static_cast<float>(end + kTwoPi);
    }
    if (radius > kLargestRadius || (end - start) < kTwoPi || isHPGL()) {
        VRKPrintFileGenerator::DrvDrawArcCircle(cx, cy, radius, start, end, filled);
        return;
    }
    // The outline of a circle in a solid line, the commonest curve of a drawing, goes straight
    // to its AA: the ellipse's path comes to the same bytes after checks this call has made
    // already, and a circle costs little more than those.
    if (filled == 0 && currentLineType == 1) {
        VRKPrintStream& s = out();
        const double sweep = (end - start) * kRadiansToDegrees;
        closeEncodedPolyline();
        writeArcOutline(s, cx, cy, radius, start, sweep);
        return;
    }
    VRKPrintHPGL2Generator::DrvDrawArcEllipse(cx, cy, radius, radius, start, end, 0.0f, filled);
}

void VRKPrintHPGL2Generator::writeArcOutline(VRKPrintStream& s, double centreX, double centreY,
                                             double radius, double angle, double sweep) {
    // Circles nearly always start at angle 0, where the cosine is 1 and the sine is the angle
    // itself (signed zero included): the same values without the library's call.
    const bool zero = angle == 0.0;
    const double startX = centreX + (zero ? 1.0 : std::cos(angle)) * radius;
    const double startY = centreY + (zero ? angle : std::sin(angle)) * radius;
    HPGL2Writer::ArcOutline(s, startX * 40.0, startY * 40.0, centreX * 40.0, centreY * 40.0, sweep,
                            arcSweep);
}

void VRKPrintHPGL2Generator::DrvDrawArcEllipse(float cx, float cy, float rx, float ry, float start,
                                               float end, float rotation, int filled) {
    if (rx <= 0.0f && ry <= 0.0f) {
        return;
    }
    if (start > end) {
        end = static_cast<float>(end + kTwoPi);
    }
    // Only a full, unrotated, solid ellipse has a native form; the plotter's own line types are
    // never used.
    if (rx > kLargestRadius || ry > kLargestRadius || (end - start) < kTwoPi || isHPGL() ||
        rotation != 0.0f || currentLineType != 1) {
        VRKPrintFileGenerator::DrvDrawArcEllipse(cx, cy, rx, ry, start, end, rotation, filled);
        return;
    }
    VRKPrintStream& s = out();
    const double sweep = (end - start) * kRadiansToDegrees;
    closeEncodedPolyline();

    // Unequal radii: a circle of the larger radius drawn in a user scale that shrinks one axis by
    // the ratio of the radii. Which plotter axis that is depends on the page rotation. The scale
    // is worked out in float, one rounding per step, as the plotter files this generator has
    // always written were computed: the stretched extent is (page extent * larger radius) /
    // smaller radius, and the centre is multiplied by the float ratio.
    const bool stretched = rx != ry;
    const bool rySmaller = ry < rx;
    const float larger = rySmaller ? rx : ry;
    const float smaller = rySmaller ? ry : rx;
    // Equal radii stretch nothing: no division for the circles among the ellipses.
    const float ratio = stretched ? larger / smaller : 1.0f;
    const bool uprightPage = pageRotation == 0.0f || pageRotation == 180.0f;
    // Stretch y when the smaller radius is ry on an upright page, or rx on a turned one.
    const bool stretchY = rySmaller == uprightPage;
    float scaleX = pageWidth, scaleY = pageHeight;
    float centreX = cx, centreY = cy;
    if (stretched && stretchY) {
        scaleY = pageHeight * larger / smaller;
    } else if (stretched) {
        scaleX = pageWidth * larger / smaller;
    }

    if (filled == 0) {
        float radius = std::min(rx, ry);
        if (stretched) {
            radius = larger;
            if (stretchY) {
                centreY *= ratio;
            } else {
                centreX *= ratio;
            }
            // Keep the stretched extent within 23 bits: scale page, centre and radius down
            // together so that it comes to 8,000,000.
            const float extent = stretchY ? scaleY : scaleX;
            if (extent > kLargestScale) {
                const float factor = kReducedScale / ratio / (stretchY ? pageHeight : pageWidth);
                scaleX *= factor;
                scaleY *= factor;
                centreX *= factor;
                centreY *= factor;
                radius *= factor;
            }
            HPGL2Writer::Scale(s, scaleX, scaleY, 0);
        }
        writeArcOutline(s, centreX, centreY, radius, start, sweep);
    } else {
        // A wedge around the pen position fills the whole ellipse.
        HPGL2Writer::PenUpAt(s, cx * 40.0, cy * 40.0);
        const bool otherPen = currentFillColor != currentDrawColor;
        if (otherPen) {
            HPGL2Writer::SelectPen(s, currentFillColor);
        }
        if (stretched) {
            HPGL2Writer::Scale(s, scaleX, scaleY, 0);
        }
        HPGL2Writer::Wedge(s, rx * 40.0, start * kRadiansToDegrees, sweep);
        if (stretched) {
            restoreScale();
        }
        if (otherPen) {
            HPGL2Writer::SelectPen(s, currentDrawColor);
        }
        return;
    }
    if (stretched) {
        restoreScale();
    }
}

void VRKPrintHPGL2Generator::restoreScale() {
    // Back to plotter units. The restore has always been written as an isotropic scaling (type 1)
    // while the stretch is anisotropic (type 0); plotters accept both for these numbers.
    HPGL2Writer::Scale(out(), pageWidth, pageHeight, 1);
}
