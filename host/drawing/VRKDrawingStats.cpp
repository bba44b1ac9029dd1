#include "host/drawing/VRKDrawingStats.h"

#include <cmath>

#include "host/drawing/VRKDrawingCheck.h"

namespace {

// The pen in the plotter's hand: its colour, and the width of the stroke pen drawn last.
struct PenInHand {
    bool colorTaken = false;
    VRKDrawingColor color;
    bool widthTaken = false;
    float width = 0.0f;

    // Drawing in `color`; true when that takes another pen.
    bool Color(VRKDrawingColor wanted) {
        const bool change = colorTaken && !(wanted == color);
        colorTaken = true;
        color = wanted;
        return change;
    }
    bool Stroke(const VRKDrawingPen& pen) {
        const bool widthChange = widthTaken && pen.width != width;
        widthTaken = true;
        width = pen.width;
        return Color(pen.color) || widthChange;
    }
};

}  // namespace

VRKDrawingStats VRKDrawingStats::Measure(const VRKDrawing& drawing) {
    VRKDrawingStats stats;
    PenInHand hand;
    VRKDrawingPoint at;
    for (const VRKDrawingItem& item : drawing.items) {
        if (!VRKDrawingCheck::ItemInRange(drawing, item)) {
            continue;
        }
        bool change = false;
        switch (item.kind) {
            case VRKDrawingItem::Kind::kStroke: {
                const VRKDrawingStroke& stroke = drawing.strokes[item.index];
                if (!VRKDrawingCheck::StrokeInRange(drawing, stroke)) {
                    break;
                }
                if (!item.joined) {
                    const VRKDrawingPoint start = drawing.StrokeStart(stroke);
                    stats.penUp += std::hypot(double{start.x} - at.x, double{start.y} - at.y);
                }
                stats.penDown += drawing.StrokeLength(stroke);
                at = drawing.StrokeEnd(stroke);
                change = hand.Stroke(drawing.pens[stroke.pen]);
                break;
            }
            case VRKDrawingItem::Kind::kFill:
                change = hand.Color(drawing.fills[item.index].color);
                break;
            case VRKDrawingItem::Kind::kText:
                change = hand.Color(drawing.texts[item.index].color);
                break;
            case VRKDrawingItem::Kind::kImage:
                break;
        }
        if (change) {
            ++stats.penChanges;
        }
    }
    return stats;
}
