// The pen choice of the HP-GL dialect: the pen for a colour and a line width, from the colour
// table, the nearest pen colour or the nearest hue, and the parallel strokes a width needs.

#include <algorithm>
#include <cmath>
#include <vector>

#include "generator/HPGL2Writer.h"
#include "host/core/VRKSaturatingTrunc.h"
#include "hpgl/HPGLDialect.h"

namespace {

// Hue of an RGB colour (components 0 to 1) on a 0-to-1 scale, by the sextant formulas of the HLS
// model; grey has hue 0. Pure red comes out as 1, not 0: the sextant of a red maximum with a green
// minimum ends at 6/6. Pens have always been matched with this hue, so it is kept.
double hueOf(double r, double g, double b) {
    const double max = std::max({r, g, b});
    const double min = std::min({r, g, b});
    if (max == min) {
        return 0.0;
    }
    const double range = max - min;
    const double rc = (max - r) / range;
    const double gc = (max - g) / range;
    const double bc = (max - b) / range;
    double hue;
    if (r == max) {
        hue = g == min ? 5.0 + bc : 1.0 - gc;
    } else if (g == max) {
        hue = b == min ? 1.0 + rc : 3.0 - bc;
    } else {
        hue = r == min ? 3.0 + gc : 5.0 - rc;
    }
    return hue / 6.0;
}

// Keeps the pens at the best distance: a distance within 0.0001 of the best so far joins them, a
// strictly smaller one starts them afresh.
class NearestPens {
  public:
    explicit NearestPens(double worst) : best_(worst) {}
    void Offer(int pen, double distance) {
        if (std::fabs(distance - best_) <= 0.0001) {
            pens_.push_back(pen);
        } else if (distance < best_) {
            best_ = distance;
            pens_.assign(1, pen);
        }
    }
    double Best() const { return best_; }
    std::vector<int>& Pens() { return pens_; }

  private:
    double best_;
    std::vector<int> pens_;
};

}  // namespace

void HPGLDialect::DefineColor(int index, float red, float green, float blue) {
    // Kept for the pen choice; a pen plotter has no palette.
    if (index >= 0 && index <= 255) {
        hostColors[static_cast<std::size_t>(index)] = {red, green, blue};
    }
}

void HPGLDialect::UseColor(VRKPrintStream& s, int index) {
    SelectPen(s, SelectPenForColor(index, currentDrawWidth, strokeCount, strokeSpacing));
}

void HPGLDialect::SetDrawWidth(VRKPrintStream& s, float width, int drawColor) {
    if (width == currentDrawWidth) {
        return;
    }
    const int pen = SelectPenForColor(drawColor, width, strokeCount, strokeSpacing);
    currentDrawWidth = width;
    SelectPen(s, pen);
}

void HPGLDialect::SelectPen(VRKPrintStream& s, int pen) {
    if (pen != currentPen) {
        HPGL2Writer::SelectPen(s, pen);
        currentPen = pen;
    }
}

namespace {

constexpr double kPlotterUnitMillimetres = 0.025;

}  // namespace

void HPGLDialect::MatchWidth(int pen, float width, int& strokes, float& spacing) const {
    strokes = 1;
    spacing = 0.0f;
    const VRKPen* chosen = pens.At(pen);
    if (chosen == nullptr) {
        return;
    }
    const float t = chosen->width;
    // A pen thinner than the line draws it as parallel strokes. A pen of no thickness cannot.
    if (t > 0.0f && t < width && std::fabs(t - width) > 0.01) {
        double count = 2 * (width / t + 1.05);
        // A pen thinner than a plotter unit would get strokes closer together than the plotter
        // can tell apart, up to hundreds of thousands drawing the same line again: it gets as
        // many strokes as the units the width spans, and no more. Real pens keep their count.
        if (t < kPlotterUnitMillimetres) {
            const double span = std::fabs(static_cast<double>(t) - width) * 40;
            count = std::max(std::min(count, std::floor(span) + 1), 2.0);
        }
        strokes = VRKSaturatingTrunc<int>(std::min(count, 100000.0));
        spacing = std::fabs(t - width) * 40 / static_cast<float>(strokes - 1);
    }
}

int HPGLDialect::SelectPenForColor(int colorIndex, float width, int& strokes, float& spacing) {
    strokes = 1;
    spacing = 0.0f;
    if (colorIndex < 0 || colorIndex > 255 || !hasPens) {
        return 0;
    }
    const HostColor& color = hostColors[static_cast<std::size_t>(colorIndex)];
    const float red = color.red;
    const float green = color.green;
    const float blue = color.blue;
    // White paper needs no ink: white goes to "no pen".
    if (std::fabs(red - 1.0f) < 0.0001f && std::fabs(green - 1.0f) < 0.0001f &&
        std::fabs(blue - 1.0f) < 0.0001f) {
        return 0;
    }

    std::vector<int> candidates;
    if (colorTable.IsOpen()) {
        colorTable.PensFor(VRKSaturatingTrunc<int>(red * 255), VRKSaturatingTrunc<int>(green * 255),
                           VRKSaturatingTrunc<int>(blue * 255), candidates);
    }
    const int used = pens.UsedSlots();
    if (candidates.empty()) {
        // The enabled pens nearest in colour, by the sum of the differences on the 0-255 scale.
        NearestPens nearest(766.0);
        for (int number = 1; number < used; ++number) {
            const VRKPen& pen = pens.Slots()[static_cast<std::size_t>(number)];
            if (pen.enable == 0) {
                continue;
            }
            nearest.Offer(number, std::fabs(red * 255 - pen.red) +
                                      std::fabs(green * 255 - pen.green) +
                                      std::fabs(blue * 255 - pen.blue));
        }
        if (nearest.Best() <= 16.0) {
            candidates = std::move(nearest.Pens());
        } else {
            // No pen is close: match the hue alone. The hues are compared without wrapping round
            // the colour circle, as pens have always been chosen.
            const double hue = hueOf(red, green, blue);
            NearestPens byHue(1.0);
            for (int number = 1; number < used; ++number) {
                const VRKPen& pen = pens.Slots()[static_cast<std::size_t>(number)];
                if (pen.enable == 0) {
                    continue;
                }
                byHue.Offer(number, std::fabs(hue - hueOf(pen.red / 255.0, pen.green / 255.0,
                                                          pen.blue / 255.0)));
            }
            candidates = std::move(byHue.Pens());
        }
    }
    if (candidates.empty()) {
        return 0;
    }
    // A plotter that renders pen widths itself takes the first candidate as it is.
    if (printThickness != 0) {
        return candidates.front();
    }
    int chosen = candidates.front();
    if (candidates.size() > 1) {
        // The candidate whose thickness is nearest the width; the earliest wins a tie.
        float bestDifference = 1000.0f;
        for (const int candidate : candidates) {
            const VRKPen* pen = pens.At(candidate);
            if (candidate <= 0 || pen == nullptr) {
                continue;
            }
            const float difference = std::fabs(pen->width - width);
            if (difference < bestDifference) {
                bestDifference = difference;
                chosen = candidate;
            }
        }
    }
    if (!pens.InUse(chosen)) {
        chosen = 0;
    }
    MatchWidth(chosen, width, strokes, spacing);
    return chosen;
}
