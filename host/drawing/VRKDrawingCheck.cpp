#include "host/drawing/VRKDrawingCheck.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

bool finite(VRKDrawingPoint p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

}  // namespace

bool VRKDrawingCheck::ItemInRange(const VRKDrawing& drawing, const VRKDrawingItem& item) {
    switch (item.kind) {
        case VRKDrawingItem::Kind::kStroke:
            return item.index < drawing.strokes.size();
        case VRKDrawingItem::Kind::kFill:
            return item.index < drawing.fills.size();
        case VRKDrawingItem::Kind::kText:
            return item.index < drawing.texts.size();
        case VRKDrawingItem::Kind::kImage:
            return item.index < drawing.images.size();
    }
    return false;
}

bool VRKDrawingCheck::StrokeInRange(const VRKDrawing& drawing, const VRKDrawingStroke& stroke) {
    const std::uint64_t least = stroke.kind == VRKDrawingStroke::Kind::kEllipse ? 3 : 1;
    const std::uint64_t end = std::uint64_t{stroke.first} + stroke.count;
    return stroke.pen < drawing.pens.size() && stroke.count >= least &&
           end <= drawing.points.size() && end <= drawing.controls.size();
}

bool VRKDrawingCheck::CanReorder(const VRKDrawing& drawing) {
    std::vector<std::uint8_t> used(drawing.strokes.size(), 0);
    // The points of every path stroke drawn and of every fill: first, end, whether a stroke's.
    struct Range {
        std::uint64_t first;
        std::uint64_t end;
        bool stroke;
    };
    std::vector<Range> ranges;
    for (const VRKDrawingItem& item : drawing.items) {
        if (!ItemInRange(drawing, item)) {
            return false;
        }
        if (item.kind == VRKDrawingItem::Kind::kFill) {
            const VRKDrawingFill& fill = drawing.fills[item.index];
            std::uint64_t count = 3;
            if (!fill.ellipse) {
                count = 0;
                const std::uint64_t rings = std::uint64_t{fill.firstRing} + fill.ringCount;
                if (rings > drawing.ringSizes.size()) {
                    return false;
                }
                for (std::uint64_t r = fill.firstRing; r < rings; ++r) {
                    count += drawing.ringSizes[r];
                }
            }
            if (count > 0) {
                ranges.push_back({fill.first, fill.first + count, false});
            }
            continue;
        }
        if (item.kind != VRKDrawingItem::Kind::kStroke) {
            continue;
        }
        if (used[item.index] != 0) {
            return false;
        }
        used[item.index] = 1;
        const VRKDrawingStroke& stroke = drawing.strokes[item.index];
        if (!StrokeInRange(drawing, stroke) || !finite(drawing.StrokeStart(stroke)) ||
            !finite(drawing.StrokeEnd(stroke))) {
            return false;
        }
        if (stroke.kind == VRKDrawingStroke::Kind::kPath) {
            ranges.push_back({stroke.first, std::uint64_t{stroke.first} + stroke.count, true});
        }
    }
    // Fills may share points with one another (nothing moves them); a path stroke shares none.
    std::sort(ranges.begin(), ranges.end(),
              [](const Range& a, const Range& b) { return a.first < b.first; });
    std::uint64_t end = 0;
    std::uint64_t strokeEnd = 0;
    for (const Range& range : ranges) {
        if (range.first < (range.stroke ? end : strokeEnd)) {
            return false;
        }
        end = std::max(end, range.end);
        if (range.stroke) {
            strokeEnd = std::max(strokeEnd, range.end);
        }
    }
    return true;
}
