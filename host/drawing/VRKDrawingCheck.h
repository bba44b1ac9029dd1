#pragma once

#include "host/drawing/VRKDrawing.h"

// Whether the parts of a drawing refer to what the drawing holds, so that code walking a drawing
// an importer made (or a broken one) reads nothing outside its arrays.
class VRKDrawingCheck {
  public:
    // The item's index is inside the vector of its kind.
    static bool ItemInRange(const VRKDrawing& drawing, const VRKDrawingItem& item);
    // The stroke's pen is one of the drawing's pens and its points (at least one for a path,
    // three for an ellipse) and their flags are inside the drawing's arrays.
    static bool StrokeInRange(const VRKDrawing& drawing, const VRKDrawingStroke& stroke);
    // What the pen-travel ordering needs to rearrange a drawing without touching anything else:
    // every item and stroke in range, the start and end of every stroke finite, no stroke drawn
    // by two items, and the points of every path stroke shared with no other stroke or fill (a
    // reversed path must reverse nothing else).
    static bool CanReorder(const VRKDrawing& drawing);
};
