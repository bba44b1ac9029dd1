#include "host/drawing/VRKDrawingOrder.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawingCheck.h"
#include "host/drawing/VRKDrawingStats.h"
#include "host/drawing/VRKStrokeTour.h"

namespace {

using Leg = VRKStrokeTour::Leg;

bool isStroke(const VRKDrawingItem& item) {
    return item.kind == VRKDrawingItem::Kind::kStroke;
}

// What the ordering changes, worked out before anything in the drawing is touched.
struct Plan {
    std::vector<VRKDrawingItem> items;
    std::vector<std::uint32_t> reversed;  // strokes to reverse
};

// The run's strokes grouped by pen (in the order of each pen's first stroke), each group in the
// tour order from where the group before it ended.
std::vector<Leg> orderRun(const std::vector<Leg>& legs, const std::vector<std::uint32_t>& pens,
                          VRKDrawingPoint from, std::vector<std::int32_t>& groupOfPen,
                          const VRKDrawingOrder::Options& options) {
    std::vector<std::vector<Leg>> groups;
    std::vector<std::uint32_t> touched;
    for (std::size_t k = 0; k < legs.size(); ++k) {
        std::int32_t group = 0;
        if (options.groupByPen) {
            std::int32_t& slot = groupOfPen[pens[k]];
            if (slot < 0) {
                slot = static_cast<std::int32_t>(groups.size());
                touched.push_back(pens[k]);
            }
            group = slot;
        }
        if (static_cast<std::size_t>(group) == groups.size()) {
            groups.emplace_back();
        }
        groups[static_cast<std::size_t>(group)].push_back(legs[k]);
    }
    for (const std::uint32_t pen : touched) {
        groupOfPen[pen] = -1;
    }

    std::vector<Leg> ordered;
    ordered.reserve(legs.size());
    for (const std::vector<Leg>& group : groups) {
        std::vector<Leg> tour = VRKStrokeTour::Greedy(group, from);
        VRKStrokeTour::Improve(tour, from, options.window, options.passes);
        from = tour.back().end;
        ordered.insert(ordered.end(), tour.begin(), tour.end());
    }
    return ordered;
}

Plan makePlan(const VRKDrawing& drawing, const VRKDrawingOrder::Options& options) {
    Plan plan{drawing.items, {}};
    const std::vector<VRKDrawingItem>& items = drawing.items;
    const std::size_t n = items.size();
    std::vector<std::int32_t> groupOfPen(drawing.pens.size(), -1);
    std::vector<Leg> legs;
    std::vector<std::uint32_t> pens;
    VRKDrawingPoint at;
    std::size_t i = 0;
    while (i < n) {
        if (!isStroke(items[i])) {
            ++i;
            continue;
        }
        std::size_t j = i;
        legs.clear();
        pens.clear();
        for (; j < n && isStroke(items[j]); ++j) {
            const VRKDrawingStroke& stroke = drawing.strokes[items[j].index];
            const bool ellipse = stroke.kind == VRKDrawingStroke::Kind::kEllipse;
            legs.push_back({static_cast<std::uint32_t>(j), drawing.StrokeStart(stroke),
                            drawing.StrokeEnd(stroke), false, ellipse});
            pens.push_back(stroke.pen);
        }
        // The travel on to where the next run starts as it stands counts for this run. Why the
        // total never grows: let A be the travel so far plus the way from the pen to the next
        // run's start, B the same for the drawing as given. Before the first run A = B (both
        // from (0, 0)). A run kept in its own order adds to A what it adds to B: its travel
        // within and on to the start of the run after it. A new order is taken only when that
        // costs less still, so A <= B holds run after run, and after the last one they are the
        // totals.
        std::size_t next = j;
        while (next < n && !isStroke(items[next])) {
            ++next;
        }
        const bool hasNext = next < n;
        const VRKDrawingPoint nextStart =
            hasNext ? drawing.StrokeStart(drawing.strokes[items[next].index]) : VRKDrawingPoint{};
        const auto cost = [&](const std::vector<Leg>& tour) {
            const double onward = hasNext ? VRKStrokeTour::Distance(tour.back().end, nextStart) : 0;
            return VRKStrokeTour::Travel(tour, at) + onward;
        };

        const std::vector<Leg> ordered = orderRun(legs, pens, at, groupOfPen, options);
        if (cost(ordered) < cost(legs)) {
            for (std::size_t k = 0; k < ordered.size(); ++k) {
                const VRKDrawingItem& item = items[ordered[k].item];
                plan.items[i + k] = item;
                if (ordered[k].reversed && !ordered[k].ellipse) {
                    plan.reversed.push_back(item.index);
                }
            }
            at = ordered.back().end;
        } else {
            at = legs.back().end;
        }
        i = j;
    }
    return plan;
}

// Joins every path stroke that goes on from where the path stroke before it ended, same pen.
void join(VRKDrawing& drawing) {
    for (std::size_t i = 0; i < drawing.items.size(); ++i) {
        VRKDrawingItem& item = drawing.items[i];
        if (!isStroke(item)) {
            continue;
        }
        item.joined = false;
        if (i == 0 || !isStroke(drawing.items[i - 1])) {
            continue;
        }
        const VRKDrawingStroke& stroke = drawing.strokes[item.index];
        const VRKDrawingStroke& before = drawing.strokes[drawing.items[i - 1].index];
        item.joined = stroke.kind == VRKDrawingStroke::Kind::kPath &&
                      before.kind == VRKDrawingStroke::Kind::kPath && stroke.pen == before.pen &&
                      drawing.StrokeStart(stroke) == drawing.StrokeEnd(before);
    }
}

}  // namespace

bool VRKDrawingOrder::Apply(VRKDrawing& drawing) noexcept {
    return Apply(drawing, Options{});
}

bool VRKDrawingOrder::Apply(VRKDrawing& drawing, const Options& options) noexcept {
    Plan plan;
    std::vector<VRKDrawingItem> original;
    double before = 0.0;
    try {
        if (!VRKDrawingCheck::CanReorder(drawing)) {
            return false;
        }
        plan = makePlan(drawing, options);
        original = drawing.items;
        before = VRKDrawingStats::Measure(drawing).penUp;
    } catch (...) {
        // Out of memory while planning: nothing has been touched yet.
        return false;
    }

    // From here on nothing allocates: the plan has the items' size, reversing works in place.
    for (const std::uint32_t stroke : plan.reversed) {
        drawing.ReverseStroke(drawing.strokes[stroke]);
    }
    std::copy(plan.items.begin(), plan.items.end(), drawing.items.begin());
    join(drawing);
    if (VRKDrawingStats::Measure(drawing).penUp > before) {
        for (const std::uint32_t stroke : plan.reversed) {
            drawing.ReverseStroke(drawing.strokes[stroke]);
        }
        std::copy(original.begin(), original.end(), drawing.items.begin());
    }
    return true;
}
