#pragma once

#include "host/drawing/VRKDrawing.h"

// What drawing a drawing costs a pen plotter, walking its items in order.
//
// penDown: the sum of the strokes' lengths (VRKDrawing::StrokeLength), millimetres.
//
// penUp: the distance the pen travels lifted, millimetres: it starts at (0, 0) and goes straight
// to the start of each stroke that is not joined; a joined stroke adds nothing. After a stroke the
// pen is at its end (an ellipse's end is its start). Fills, texts and images do not move the pen
// for this count: the travel they cost depends on how the device draws them.
//
// penChanges: how many times the plotter puts a pen back and takes another. A stroke is drawn
// with a pen of its pen's colour and width, a fill or a text with a pen of its colour. The first
// thing drawn takes the first pen, which is not a change. After that, a stroke is one change when
// its colour differs from the colour drawn last (by a stroke, a fill or a text) or its width from
// the width of the stroke drawn last; a fill or a text is one change when its colour differs from
// the colour drawn last. So red stroke, blue fill, red stroke is two changes; a red stroke of
// 0.3 mm, a red fill and a red stroke of 0.5 mm is one. Line style, cap and join are settings of
// the same pen, not changes. Images are not drawn with a pen and change nothing.
//
// Items that refer outside the drawing's arrays (VRKDrawingCheck) are left out of every count.
struct VRKDrawingStats {
    double penDown = 0;
    double penUp = 0;
    int penChanges = 0;

    static VRKDrawingStats Measure(const VRKDrawing& drawing);
};
