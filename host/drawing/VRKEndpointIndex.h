#pragma once

#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawing.h"

// The nearest of a set of points to a given point, with points taken out as they are used: what
// the pen-travel ordering asks for once a stroke, over the ends of the strokes not drawn yet.
//
// A k-d tree kept in one array: the point of the node over the positions [lo, hi) sits at the
// middle position, the points before it and after it are its two subtrees, split along the wider
// side of their bounding box. Each node counts the points still in its subtree, so a search never
// enters a subtree whose points are all taken. Building costs O(n log n); a search or a removal
// costs O(log n) for points spread over the page.
class VRKEndpointIndex {
  public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFu;

    // The point with id i is points[i].
    explicit VRKEndpointIndex(const std::vector<VRKDrawingPoint>& points);

    // The id of the remaining point nearest to `from`; of points equally near, the smallest id.
    // kNone when every point is taken. Coordinates must be finite.
    std::uint32_t Nearest(VRKDrawingPoint from) const;
    // Takes the point out; taking a point twice or an unknown id does nothing.
    void Remove(std::uint32_t id);
    std::uint32_t Remaining() const { return nodes_.empty() ? 0 : nodes_[Root()].live; }

  private:
    struct Node {
        VRKDrawingPoint point;
        std::uint32_t id = 0;
        std::uint32_t live = 0;  // points still in the subtree of this node, itself included
        std::uint8_t axis = 0;   // 0: split on x, 1: split on y
        bool present = true;
    };
    struct Best {
        double distance2;
        std::uint32_t id;
    };

    std::uint32_t Root() const { return static_cast<std::uint32_t>(nodes_.size() / 2); }
    void Build(std::uint32_t lo, std::uint32_t hi);
    void Search(std::uint32_t lo, std::uint32_t hi, VRKDrawingPoint from, Best& best) const;

    std::vector<Node> nodes_;
    std::vector<std::uint32_t> position_;  // id -> position in nodes_
};
