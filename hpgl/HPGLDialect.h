#pragma once

#include <array>

#include "hpgl/HPGLColorTable.h"
#include "hpgl/HPGLSurface.h"
#include "properties/VRKPenTable.h"

class VRKPrintHPGLProperties;
class VRKPrintParameters;
class VRKPrintStream;

// HP-GL for pen plotters, as the HP-GL/2 generator writes it when its record asks for it: the
// plotter has physical pens, so every colour and line width is mapped to the best pen of a pen
// table (and of an optional colour table file), a line wider than its pen is drawn as parallel
// strokes, an area is hatched, and moves wait for the next line so that a run of them costs one
// PU. Coordinates reach the dialect in plotter units; it writes absolute or relative PU/PD pairs.
//
// The state is open to the generator that owns the dialect and to its tests.
class HPGLDialect {
  public:
    // A colour the host defined, each component 0.0 to 1.0.
    struct HostColor {
        float red = 0.0f;
        float green = 0.0f;
        float blue = 0.0f;
    };
    // An area to fill, millimetres, and how: fill rule (1 non-zero winding), fill mode (2 the
    // host's pattern), the colours selected, and the origin offset of the coordinates.
    struct Area {
        int nbPolygons;
        const int* nbPoints;
        const float* points;
        int fillRule;
        int fillMode;
        int drawColor;
        int fillColor;
        float offsetX;
        float offsetY;
    };

    // Job start: the origin of the form, absolute or relative moves, the first pen, the pen
    // table and the colour table.
    void JobStart(VRKPrintStream& s, const VRKPrintParameters& params,
                  const VRKPrintHPGLProperties& settings);
    void JobEnd(VRKPrintStream& s);

    // Keeps a colour for the pen choice (0 to 255; others are ignored). Nothing is written.
    void DefineColor(int index, float red, float green, float blue);
    // Takes the pen for a colour at the current width: SP when it changes.
    void UseColor(VRKPrintStream& s, int index);
    // Takes the pen for the drawing colour at a new width: SP when it changes.
    void SetDrawWidth(VRKPrintStream& s, float width, int drawColor);
    // The pen for a colour index and a line width, with the number of parallel strokes and their
    // spacing (plotter units) that make up the width.
    int SelectPenForColor(int colorIndex, float width, int& strokes, float& spacing);
    // Strokes for a line of `width` drawn with `pen`: one, or as many as cover the width.
    void MatchWidth(int pen, float width, int& strokes, float& spacing) const;
    // Writes SP when the pen changes.
    void SelectPen(VRKPrintStream& s, int pen);
    // True when the current pen is one of the table, with a width to hatch with: pen 0 and pens
    // outside the table draw no hatch.
    bool CurrentPenHatches() const { return hasPens && pens.InUse(currentPen) && currentPen >= 1; }

    // A pen-up move: only remembered; the next line writes it.
    void MoveTo(int px, int py);
    // A pen-down line, with parallel strokes for widths above the pen's.
    void LineTo(VRKPrintStream& s, int px, int py);

    // The hatch: outline, then even-odd scan lines half the current pen's width apart (the
    // non-zero rule cut into even-odd pieces first).
    void Fill(VRKPrintStream& s, const Area& area, HPGLSurface& surface);

    // Colours defined by the host.
    std::array<HostColor, 256> hostColors{};
    // The pen table, from the settings or from the "PenTable" file; absent when that file was
    // asked for and could not be read.
    VRKPenTable pens;
    bool hasPens = false;
    HPGLColorTable colorTable;

    // The pen in use, and the strokes that make up the current width with it.
    float currentDrawWidth = 0.0f;
    int currentPen = 0;
    int strokeCount = 1;
    float strokeSpacing = 0.0f;
    int printThickness = 0;

    // Moves: the origin (also the reference point of relative moves), the pen position the next
    // line starts from, and whether a move waits to be written.
    int originX = 0;
    int originY = 0;
    int relativeMoves = 0;
    int currentX = 0;
    int currentY = 0;
    int movePending = 0;
    // Set while the hatch draws its strokes.
    int suppressStrokes = 0;

  private:
    void buildPenTable(const VRKPrintHPGLProperties& settings);
    void openColorTable();
    void hatch(VRKPrintStream& s, const Area& area, HPGLSurface& surface);
    bool spanBelowPlotterUnit(float x0, float x1, float y, const Area& area) const;
};
