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
    const auto count = static_cast<std::uint32_t>(points.size());
    ids_.resize(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        ids_[i] = i;
    }
    // Ids by place, then by id: the ids of one place one after the other, smallest first.
    std::sort(ids_.begin(), ids_.end(), [&points](std::uint32_t a, std::uint32_t b) {
        const VRKDrawingPoint p = points[a];
        const VRKDrawingPoint q = points[b];
        if (p.x != q.x) {
            return p.x < q.x;
        }
        if (p.y != q.y) {
            return p.y < q.y;
        }
        return a < b;
    });
    for (std::uint32_t i = 0; i < count; ++i) {
        if (i == 0 || !(points[ids_[i]] == points[ids_[i - 1]])) {
            Node node;
            node.point = points[ids_[i]];
            node.first = i;
            nodes_.push_back(node);
        }
        nodes_.back().end = i + 1;
    }
    Build(0, static_cast<std::uint32_t>(nodes_.size()));
    node_.resize(count);
    for (std::uint32_t n = 0; n < nodes_.size(); ++n) {
        for (std::uint32_t i = nodes_[n].first; i < nodes_[n].end; ++i) {
            node_[ids_[i]] = n;
        }
    }
    taken_.assign(count, 0);
    remaining_ = count;
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
    if (node.first < node.end) {
        const double d2 = distance2(from, node.point);
        const std::uint32_t id = ids_[node.first];
        if (d2 < best.distance2 || (d2 == best.distance2 && id < best.id)) {
            best = {d2, id};
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
    if (id >= taken_.size() || taken_[id] != 0) {
        return;
    }
    taken_[id] = 1;
    --remaining_;
    const std::uint32_t target = node_[id];
    Node& node = nodes_[target];
    while (node.first < node.end && taken_[ids_[node.first]] != 0) {
        ++node.first;
    }
    if (node.first < node.end) {
        return;
    }
    // The place is empty: one node fewer in every subtree on the way down to it.
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
