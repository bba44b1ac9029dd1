#pragma once

#include <cstdint>

#include "host/drawing/VRKDrawing.h"

// Rearranges the strokes of a drawing so that a pen plotter lifts and moves its pen less and
// changes pens less often, drawing exactly the same lines.
//
// The items are cut into runs: strokes one after the other, between fills, texts and images.
// Those stay where they are and no stroke moves across one, so what lies over what is kept.
// Within a run the strokes are grouped by pen, the groups in the order in which their pens first
// appear (the pen a run starts with stays first). Within a group the strokes are taken greedily:
// from where the pen is (the end of what was drawn before, (0, 0) at the start of the drawing),
// the stroke with a start or an end nearest to it; a path taken by its end is reversed
// (VRKDrawing::ReverseStroke) so as to be drawn from there, an ellipse is taken by its start.
// Stretches of the greedy order are then reversed where that shortens the travel.
//
// The pen-up travel (VRKDrawingStats::penUp) never grows: a run keeps its own order unless the
// new one is strictly shorter, counting the travel into the run and on to the first stroke of
// the next run as it stands, which makes the total of the runs chosen no longer than the
// original's. The drawing as a whole is measured before and after; were it longer after (float
// rounding of sums taken in another order), it is put back as it was.
//
// Finally every stroke is joined (VRKDrawingItem::joined) when the item before it is a stroke of
// the same pen whose end is exactly its start; both must be paths: an ellipse is drawn by a call
// of its own, which may leave the pen anywhere on it. Every other stroke's flag is cleared.
//
// The segments drawn are the same (a reversed path draws the same segments the other way round),
// with the same pens; only their order and direction change.
class VRKDrawingOrder {
  public:
    struct Options {
        bool groupByPen = true;
        // Longest stretch of consecutive strokes reversed by the improvement; 0 leaves the greedy
        // order as it is.
        std::uint32_t window = 8;
        int passes = 2;
    };

    // False, with the drawing untouched, when the drawing cannot be reordered safely
    // (VRKDrawingCheck::CanReorder: an item or a stroke refers outside the drawing's arrays, a
    // point is not finite, strokes share points). Throws nothing.
    static bool Apply(VRKDrawing& drawing) noexcept;
    static bool Apply(VRKDrawing& drawing, const Options& options) noexcept;
};
