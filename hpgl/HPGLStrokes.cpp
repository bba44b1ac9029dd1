// Moves and lines of the HP-GL dialect: a move waits for the next line, and a line wider than the
// pen is drawn as parallel strokes.

#include <cmath>

#include "generator/HPGL2Writer.h"
#include "host/core/VRKSaturatingTrunc.h"
#include "hpgl/HPGLDialect.h"

void HPGLDialect::MoveTo(int px, int py) {
    // A move is only remembered; the next line writes it, so a run of moves costs one PU.
    if (px != currentX || py != currentY) {
        movePending = 1;
        currentX = px;
        currentY = py;
    }
}

void HPGLDialect::LineTo(VRKPrintStream& s, int ex, int ey) {
    // Without a pen the plotter draws nothing; the move stays pending for the next pen.
    if (currentPen == 0) {
        return;
    }
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
