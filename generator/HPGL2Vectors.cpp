// Pen-up moves and pen-down lines.

#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"

void VRKPrintHPGL2Generator::DrvMoveTo(float x, float y) {
    int px, py;
    toPlotterUnits(x, y, px, py);
    if (isHPGL()) {
        hpgl.MoveTo(px, py);
        return;
    }
    VRKPrintStream& s = out();
    if (encodedPolylineOpen == 0) {
        openEncodedPolyline();
    } else if (px == lastEncodedX && py == lastEncodedY) {
        return;
    }
    HPGL2Writer::EncodedPenUp(s);
    writeEncodedPair(s, px, py);
}

void VRKPrintHPGL2Generator::DrvLineTo(float x, float y) {
    int px, py;
    toPlotterUnits(x, y, px, py);
    if (isHPGL()) {
        hpgl.LineTo(out(), px, py);
        return;
    }
    VRKPrintStream& s = out();
    if (encodedPolylineOpen == 0) {
        openEncodedPolyline();
    }
    // A line to the current position is still written: a zero-length pair plots a dot.
    writeEncodedPair(s, px, py);
}
