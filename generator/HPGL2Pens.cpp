// Colours and pens: palette colours in HP-GL/2; in HP-GL the dialect chooses a physical pen for a
// colour and a line width.

#include <algorithm>
#include <cmath>
#include <vector>

#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKSaturatingTrunc.h"

void VRKPrintHPGL2Generator::DrvDefineColor(int index, float r, float g, float b) {
    if (isHPGL()) {
        hpgl.DefineColor(index, r, g, b);
        return;
    }
    closeEncodedPolyline();
    HPGL2Writer::PenColor(out(), index, VRKSaturatingTrunc<long long>(r * 255.0),
                          VRKSaturatingTrunc<long long>(g * 255.0),
                          VRKSaturatingTrunc<long long>(b * 255.0));
}

void VRKPrintHPGL2Generator::DrvSelectDrawColor(int index) {
    if (isHPGL()) {
        hpgl.UseColor(out(), index);
        currentDrawColor = index;
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
        hpgl.UseColor(out(), index);
        currentFillColor = index;
        return;
    }
    currentFillColor = index;
}

void VRKPrintHPGL2Generator::DrvSetDrawWidth(float width) {
    if (isHPGL()) {
        hpgl.SetDrawWidth(out(), width, currentDrawColor);
        return;
    }
    closeEncodedPolyline();
    HPGL2Writer::PenWidth(out(), width);
}
