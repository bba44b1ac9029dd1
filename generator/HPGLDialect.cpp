// The HP-GL dialect for pen plotters: job start and end, and pen-down lines with parallel strokes
// for widths above the pen's.

#include <cmath>
#include <iostream>

#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKSaturatingTrunc.h"
#include "properties/VRKPrintHPGLProperties.h"

void VRKPrintHPGL2Generator::hpglJobStart(const VRKPrintParameters& params) {
    if (hpglSettings == nullptr) {
        return;
    }
    VRKPrintStream& s = out();
    const VRKPrintForm& form = params.GetForm();
    const int w = VRKSaturatingTrunc<int>(form.GetWidth() * 40.0);
    const int h = VRKSaturatingTrunc<int>(form.GetHeight() * 40.0);
    originOffsetX = 0.0f;

    // The plotter's origin sits at the lower left corner of the hard-clip area; the setting puts
    // the drawing's origin at a corner or the centre of the form instead.
    originX = 0;
    originY = 0;
    const bool landscape = form.GetOrientation() == 0;
    const bool portrait = form.GetOrientation() == 1;
    if (landscape || portrait) {
        // In orientation 0 the form lies turned: its height runs along the plotter's x axis.
        const int along = landscape ? h : w;
        const int across = landscape ? w : h;
        // The negation of the int's smallest is held at its largest.
        const auto negated = [](int v) { return VRKSaturatingTrunc<int>(-static_cast<double>(v)); };
        switch (hpglSettings->GetOrigin()) {
            case 0:
                originX = -(along / 2);
                originY = -(across / 2);
                break;
            case 2:
                originY = negated(across);
                break;
            case 3:
                originX = negated(along);
                break;
            case 4:
                originX = negated(along);
                originY = negated(across);
                break;
            default:
                break;
        }
    }
    HPGL2Writer::PenUp(s, originX, originY);

    relativeMoves = hpglSettings->GetRelativeMovePen();
    if (relativeMoves != 0) {
        HPGL2Writer::PlotRelative(s);
    } else {
        HPGL2Writer::PlotAbsolute(s);
    }
    HPGL2Writer::End(s);
    printThickness = hpglSettings->GetPrintThickness();
    HPGL2Writer::SelectPen(s, VRKEnvironment::IsDefined("HPGL_WITH_SP0") ? 0 : 1);
    HPGL2Writer::End(s);

    buildPenTable();
    strokeCount = 1;
    strokeSpacing = 0.0f;
    currentPen = 0;
    openColorTable();
}

void VRKPrintHPGL2Generator::hpglJobEnd() {
    VRKPrintStream& s = out();
    HPGL2Writer::PenUp(s);
    HPGL2Writer::End(s);
    HPGL2Writer::PlotAbsolute(s);
    HPGL2Writer::End(s);
    HPGL2Writer::SelectPen(s, 0);
    HPGL2Writer::End(s);
    HPGL2Writer::AdvancePage(s);
    HPGL2Writer::End(s);
    freePenTable();
    colorTableRecords = {};
    // A failed close only marks the table reader failed; nothing is reported.
    if (tableReader.is_open()) {
        tableReader.close();
    }
}

void VRKPrintHPGL2Generator::hpglLineTo(float x, float y) {
    // Without a pen the plotter draws nothing; the move stays pending for the next pen.
    if (currentPen == 0) {
        return;
    }
    VRKPrintStream& s = out();
    const bool relative = relativeMoves != 0;
    if (movePending != 0) {
        HPGL2Writer::PenUp(s, static_cast<long long>(currentX) - originX,
                           static_cast<long long>(currentY) - originY);
        movePending = 0;
        if (relative) {
            originX = currentX;
            originY = currentY;
        }
    }
    int ex, ey;
    toPlotterUnits(x, y, ex, ey);
    if (strokeCount <= 1) {
        HPGL2Writer::PenDown(s, static_cast<long long>(ex) - originX,
                             static_cast<long long>(ey) - originY);
        if (relative) {
            originX = ex;
            originY = ey;
        }
    } else {
        // A line wider than the pen is drawn as parallel strokes across the line's direction.
        // An even count n gives n + 1 strokes, centre included; an odd count gives n strokes with
        // the centre one and the others spread by an extra half spacing. Plotters in the field
        // have been driven with exactly these strokes, so the counts stay as they are.
        const int n = strokeCount;
        // The differences in doubles, where every difference of two ints is exact.
        const double a =
            std::atan2(static_cast<double>(currentY) - ey, static_cast<double>(currentX) - ex);
        const double sinA = std::sin(a);
        const double cosA = std::cos(a);
        for (int i = -(n / 2); i <= n / 2; ++i) {
            float d;
            if (n % 2 == 0 || i == 0) {
                d = static_cast<float>(i) * strokeSpacing;
            } else if (i < 0) {
                d = static_cast<float>(i) * strokeSpacing - strokeSpacing / 2;
            } else {
                d = static_cast<float>(i) * strokeSpacing + strokeSpacing / 2;
            }
            // A spacing too large for the int (an infinite width) holds the offsets at its limits.
            const int dx = VRKSaturatingTrunc<int>(d * sinA);
            const int dy = VRKSaturatingTrunc<int>(cosA * d);
            const long long ux = static_cast<long long>(currentX) - dx;
            const long long uy = static_cast<long long>(currentY) + dy;
            HPGL2Writer::PenUp(s, ux - originX, uy - originY);
            if (relative) {
                originX = static_cast<int>(ux);
                originY = static_cast<int>(uy);
            }
            const long long dxEnd = static_cast<long long>(ex) - dx;
            const long long dyEnd = static_cast<long long>(ey) + dy;
            HPGL2Writer::PenDown(s, dxEnd - originX, dyEnd - originY);
            if (relative) {
                originX = static_cast<int>(dxEnd);
                originY = static_cast<int>(dyEnd);
            }
        }
    }
    currentX = ex;
    currentY = ey;
}
