// Area fill: polygon mode in HP-GL/2, a scan-line hatch with the current pen in HP-GL.

#include "generator/FillArguments.h"
#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"

class VRKPrintHPGL2Generator::HatchSurface final : public HPGLSurface {
  public:
    explicit HatchSurface(VRKPrintHPGL2Generator& generator) : generator_(generator) {}
    void MoveTo(float x, float y) override { generator_.DrvMoveTo(x, y); }
    void LineTo(float x, float y) override { generator_.DrvLineTo(x, y); }
    void PatternFill(int nbPolygons, const int* nbPoints, const float* points) override {
        generator_.FillPatternPolygon(nbPolygons, nbPoints, points);
    }

  private:
    VRKPrintHPGL2Generator& generator_;
};

void VRKPrintHPGL2Generator::DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) {
    if (fillVertexCount(nbPolygons, nbPoints, points) < 1) {
        return;
    }
    if (isHPGL()) {
        HatchSurface surface(*this);
        hpgl.Fill(out(),
                  {nbPolygons, nbPoints, points, GetPolygonFillRule(), GetFillMode(),
                   currentDrawColor, currentFillColor, originOffsetX, originOffsetY},
                  surface);
        return;
    }
    closeEncodedPolyline();
    if (GetFillMode() == 2) {
        FillPatternPolygon(nbPolygons, nbPoints, points);
        return;
    }

    VRKPrintStream& s = out();
    const bool otherPen = currentFillColor != currentDrawColor;
    if (otherPen) {
        HPGL2Writer::SelectPen(s, currentFillColor);
    }
    // The polygon buffer starts at the pen-up point; the PE after PM0 is relative to it.
    int x0, y0;
    toPlotterUnits(points[0], points[1], x0, y0);
    HPGL2Writer::PenUp(s, x0, y0);
    lastEncodedX = x0;
    lastEncodedY = y0;
    encodedPolylineOpen = 1;
    HPGL2Writer::PolygonMode(s, 0);
    HPGL2Writer::OpenEncoded(s);

    const float* p = points;
    for (int i = 0; i < nbPolygons; ++i) {
        int first = 0;
        if (i > 0) {
            HPGL2Writer::PolygonMode(s, 1);
            if (encodedPolylineOpen == 0) {
                openEncodedPolyline();
            }
        } else if (nbPoints[0] >= 1) {
            first = 1;  // the pen-up point is polygon 0's first vertex
            p += 2;
        }
        for (int k = first; k < nbPoints[i]; ++k, p += 2) {
            DrvLineTo(p[0], p[1]);
        }
        if (nbPolygons != 1) {
            closeEncodedPolyline();
        }
    }
    // A single polygon is closed explicitly; the plotter closes each subpolygon of several.
    if (nbPolygons == 1) {
        DrvLineTo(points[0], points[1]);
        closeEncodedPolyline();
    }
    HPGL2Writer::PolygonMode(s, 2);
    HPGL2Writer::FillPolygon(s, GetPolygonFillRule() == 1 ? 1 : 0);
    if (otherPen) {
        HPGL2Writer::SelectPen(s, currentDrawColor);
    }
}
