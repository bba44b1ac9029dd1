#include "host/drawing/VRKEndpointIndex.h"

#include <algorithm>
#include <limits>

namespace {

double coordinate(VRKDrawingPoint p, std::uint8_t axis) {
    return axis == 0 ? double{p.x} : double{p.y};
}

double distance2(VRKDrawingPoint a, VRKDrawingPoint b) {
    const double dx = double{a.x} - double{b.x};
    const double dy = double{a.y} - double{b.y};
    return dx * dx + dy * dy;
}

}  // namespace

VRKEndpointIndex::VRKEndpointIndex(const std::vector<VRKDrawingPoint>& points) {
    nodes_.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        nodes_[i].point = points[i];
        nodes_[i].id = static_cast<std::uint32_t>(i);
    }
    Build(0, static_cast<std::uint32_t>(nodes_.size()));
    position_.resize(nodes_.size());
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        position_[nodes_[i].id] = static_cast<std::uint32_t>(i);
    }
}

void VRKEndpointIndex::Build(std::uint32_t lo, std::uint32_t hi) {
    if (lo >= hi) {
        return;
    }
    float minX = std::numeric_limits<float>::max();
    float minY = minX;
    float maxX = std::numeric_limits<float>::lowest();
    float maxY = maxX;
    for (std::uint32_t i = lo; i < hi; ++i) {
        minX = std::min(minX, nodes_[i].point.x);
        maxX = std::max(maxX, nodes_[i].point.x);
        minY = std::min(minY, nodes_[i].point.y);
        maxY = std::max(maxY, nodes_[i].point.y);
    }
    const std::uint8_t axis = double{maxY} - double{minY} > double{maxX} - double{minX}
                                  ? std::uint8_t{1}
                                  : std::uint8_t{0};
    const std::uint32_t mid = lo + (hi - lo) / 2;
    std::nth_element(nodes_.begin() + lo, nodes_.begin() + mid, nodes_.begin() + hi,
                     [axis](const Node& a, const Node& b) {
                         return coordinate(a.point, axis) < coordinate(b.point, axis);
                     });
    nodes_[mid].axis = axis;
    nodes_[mid].live = hi - lo;
    Build(lo, mid);
    Build(mid + 1, hi);
}

std::uint32_t VRKEndpointIndex::Nearest(VRKDrawingPoint from) const {
    Best best{std::numeric_limits<double>::infinity(), kNone};
    Search(0, static_cast<std::uint32_t>(nodes_.size()), from, best);
    return best.id;
}

void VRKEndpointIndex::Search(std::uint32_t lo, std::uint32_t hi, VRKDrawingPoint from,
                              Best& best) const {
    if (lo >= hi) {
        return;
    }
    const std::uint32_t mid = lo + (hi - lo) / 2;
    const Node& node = nodes_[mid];
    if (node.live == 0) {
        return;
    }
    if (node.present) {
        const double d2 = distance2(from, node.point);
        if (d2 < best.distance2 || (d2 == best.distance2 && node.id < best.id)) {
            best = {d2, node.id};
        }
    }
    const double across = coordinate(from, node.axis) - coordinate(node.point, node.axis);
    // The near side first; the far side only if the splitting line is not farther than the best
    // so far (equally far: a point there may win on its smaller id).
    if (across < 0.0) {
        Search(lo, mid, from, best);
        if (across * across <= best.distance2) {
            Search(mid + 1, hi, from, best);
        }
    } else {
        Search(mid + 1, hi, from, best);
        if (across * across <= best.distance2) {
            Search(lo, mid, from, best);
        }
    }
}

void VRKEndpointIndex::Remove(std::uint32_t id) {
    if (id >= position_.size() || !nodes_[position_[id]].present) {
        return;
    }
    const std::uint32_t target = position_[id];
    nodes_[target].present = false;
    std::uint32_t lo = 0;
    std::uint32_t hi = static_cast<std::uint32_t>(nodes_.size());
    while (lo < hi) {
        const std::uint32_t mid = lo + (hi - lo) / 2;
        --nodes_[mid].live;
        if (mid == target) {
            return;
        }
        if (target < mid) {
            hi = mid;
        } else {
            lo = mid + 1;
        }
    }
}
