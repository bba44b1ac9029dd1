// Colours and pens: palette colours in HP-GL/2, and in HP-GL the choice of a physical pen for a
// colour and a line width.

#include <algorithm>
#include <cmath>
#include <vector>

#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKSaturatingTrunc.h"

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

void VRKPrintHPGL2Generator::DrvDefineColor(int index, float r, float g, float b) {
    if (isHPGL()) {
        hpglDefineColor(index, r, g, b);
        return;
    }
    closeEncodedPolyline();
    HPGL2Writer::PenColor(out(), index, VRKSaturatingTrunc<long long>(r * 255.0),
                          VRKSaturatingTrunc<long long>(g * 255.0),
                          VRKSaturatingTrunc<long long>(b * 255.0));
}

void VRKPrintHPGL2Generator::hpglDefineColor(int index, float r, float g, float b) {
    // Kept for the pen choice; a pen plotter has no palette.
    if (index >= 0 && index <= 255 && penRed != nullptr && penGreen != nullptr &&
        penBlue != nullptr) {
        penRed[index] = r;
        penGreen[index] = g;
        penBlue[index] = b;
    }
}

void VRKPrintHPGL2Generator::DrvSelectDrawColor(int index) {
    if (isHPGL()) {
        const int pen = selectPenForColor(index, currentDrawWidth, strokeCount, strokeSpacing);
        currentDrawColor = index;
        selectPen(pen);
        return;
    }
    // Pens are never changed inside a PE instruction, so the open one ends even when the colour
    // stays.
    closeEncodedPolyline();
    if (index == currentDrawColor) {
        return;
    }
    // The palette index is the pen number: NP256 made 256 of them.
    HPGL2Writer::SelectPen(out(), index);
    currentDrawColor = index;
}

void VRKPrintHPGL2Generator::DrvSelectFillColor(int index) {
    if (isHPGL()) {
        const int pen = selectPenForColor(index, currentDrawWidth, strokeCount, strokeSpacing);
        currentFillColor = index;
        selectPen(pen);
        return;
    }
    currentFillColor = index;
}

void VRKPrintHPGL2Generator::DrvSetDrawWidth(float width) {
    if (isHPGL()) {
        if (width == currentDrawWidth) {
            return;
        }
        const int pen = selectPenForColor(currentDrawColor, width, strokeCount, strokeSpacing);
        currentDrawWidth = width;
        selectPen(pen);
        return;
    }
    closeEncodedPolyline();
    HPGL2Writer::PenWidth(out(), width);
}

void VRKPrintHPGL2Generator::selectPen(int pen) {
    if (pen != currentPen) {
        HPGL2Writer::SelectPen(out(), pen);
        currentPen = pen;
    }
}

namespace {

constexpr double kPlotterUnitMillimetres = 0.025;

}  // namespace

void VRKPrintHPGL2Generator::matchWidth(int pen, float width, int& strokes, float& spacing) const {
    strokes = 1;
    spacing = 0.0f;
    const float t = tableThickness[pen];
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

int VRKPrintHPGL2Generator::selectPenForColor(int colorIndex, float width, int& strokes,
                                              float& spacing) {
    strokes = 1;
    spacing = 0.0f;
    if (colorIndex < 0 || colorIndex > 255 || tableRed == nullptr || tableGreen == nullptr ||
        tableBlue == nullptr || tableThickness == nullptr || tableEnabled == nullptr ||
        penRed == nullptr || penGreen == nullptr || penBlue == nullptr) {
        return 0;
    }
    const float red = penRed[colorIndex];
    const float green = penGreen[colorIndex];
    const float blue = penBlue[colorIndex];
    // White paper needs no ink: white goes to "no pen".
    if (std::fabs(red - 1.0f) < 0.0001f && std::fabs(green - 1.0f) < 0.0001f &&
        std::fabs(blue - 1.0f) < 0.0001f) {
        return 0;
    }

    std::vector<int> candidates;
    if (tableReader.is_open()) {
        readColorTable(VRKSaturatingTrunc<int>(red * 255), VRKSaturatingTrunc<int>(green * 255),
                       VRKSaturatingTrunc<int>(blue * 255), candidates);
    }
    if (candidates.empty()) {
        // The enabled pens nearest in colour, by the sum of the differences on the 0-255 scale.
        NearestPens nearest(766.0);
        for (int pen = 1; pen < penCount; ++pen) {
            if (tableEnabled[pen] == 0) {
                continue;
            }
            nearest.Offer(pen, std::fabs(red * 255 - tableRed[pen]) +
                                   std::fabs(green * 255 - tableGreen[pen]) +
                                   std::fabs(blue * 255 - tableBlue[pen]));
        }
        if (nearest.Best() <= 16.0) {
            candidates = std::move(nearest.Pens());
        } else {
            // No pen is close: match the hue alone. The hues are compared without wrapping round
            // the colour circle, as pens have always been chosen.
            const double hue = hueOf(red, green, blue);
            NearestPens byHue(1.0);
            for (int pen = 1; pen < penCount; ++pen) {
                if (tableEnabled[pen] == 0) {
                    continue;
                }
                byHue.Offer(pen,
                            std::fabs(hue - hueOf(tableRed[pen] / 255.0, tableGreen[pen] / 255.0,
                                                  tableBlue[pen] / 255.0)));
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
    int pen = candidates.front();
    if (candidates.size() > 1) {
        // The candidate whose thickness is nearest the width; the earliest wins a tie.
        float bestDifference = 1000.0f;
        for (const int candidate : candidates) {
            if (candidate <= 0) {
                continue;
            }
            const float difference = std::fabs(tableThickness[candidate] - width);
            if (difference < bestDifference) {
                bestDifference = difference;
                pen = candidate;
            }
        }
    }
    if (pen < 0 || pen >= penCount) {
        pen = 0;
    }
    matchWidth(pen, width, strokes, spacing);
    return pen;
}
