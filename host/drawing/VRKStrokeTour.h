#pragma once

#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawing.h"

// The order and direction in which a set of strokes is drawn, chosen to keep the pen's travel in
// the air short: a greedy walk to the nearest free stroke end, then a local improvement. It works
// on the strokes' ends only and changes nothing in a drawing; VRKDrawingOrder applies the result.
class VRKStrokeTour {
  public:
    // One stroke as placed in a tour: where it starts and ends as it is drawn.
    struct Leg {
        std::uint32_t item = 0;  // whatever the caller uses to find the stroke again
        VRKDrawingPoint start;
        VRKDrawingPoint end;
        bool reversed = false;  // drawn from its stored end to its stored start
        bool ellipse = false;   // taken by its start only, never reversed
    };

    // The legs (as stored, none reversed) in greedy order from `from`: each next one is the leg
    // with a free end nearest to where the last one ended; a path taken by its end is reversed.
    // Of ends equally near, the one of the earlier leg wins, and a leg's start before its end.
    static std::vector<Leg> Greedy(const std::vector<Leg>& legs, VRKDrawingPoint from);

    // Shortens the travel of a tour by reversing stretches of at most `window` consecutive legs
    // (their order and each one's direction) wherever that makes the travel strictly shorter; at
    // most `passes` passes over the tour. The tour's end may move.
    static void Improve(std::vector<Leg>& tour, VRKDrawingPoint from, std::uint32_t window,
                        int passes);

    // The pen-up travel of drawing the legs in order from `from`.
    static double Travel(const std::vector<Leg>& tour, VRKDrawingPoint from);

    static double Distance(VRKDrawingPoint a, VRKDrawingPoint b);
};
