#pragma once

#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawing.h"

// The nearest of a set of points to a given point, with points taken out as they are used: what
// the pen-travel ordering asks for once a stroke, over the ends of the strokes not drawn yet.
//
// A k-d tree kept in one array: the node over the positions [lo, hi) sits at the middle
// position, the nodes before it and after it are its two subtrees, split along the wider side of
// their bounding box. Each node counts the nodes still holding points in its subtree, so a search
// never enters a subtree whose points are all taken. Points at the same place share one node
// (many strokes meet at one point in a drawing; separate nodes would all be equally near).
// Building costs O(n log n); a search or a removal O(log n) for points spread over the page.
class VRKEndpointIndex {
  public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFu;

    // The point with id i is points[i]. Coordinates must be finite.
    explicit VRKEndpointIndex(const std::vector<VRKDrawingPoint>& points);

    // The id of the remaining point nearest to `from`; of points equally near, the smallest id.
    // kNone when every point is taken.
    std::uint32_t Nearest(VRKDrawingPoint from) const;
    // Takes the point out; taking a point twice or an unknown id does nothing.
    void Remove(std::uint32_t id);
    std::uint32_t Remaining() const { return remaining_; }

  private:
    struct Node {
        VRKDrawingPoint point;
        std::uint32_t first = 0;  // the ids at this place: ids_[first, end), smallest first
        std::uint32_t end = 0;
        std::uint32_t live = 0;  // nodes with points left in the subtree of this node
        std::uint8_t axis = 0;   // 0: split on x, 1: split on y
    };
    struct Best {
        double distance2;
        std::uint32_t id;
    };

    void Build(std::uint32_t lo, std::uint32_t hi);
    void Search(std::uint32_t lo, std::uint32_t hi, VRKDrawingPoint from, Best& best) const;

    std::vector<Node> nodes_;
    std::vector<std::uint32_t> ids_;
    std::vector<std::uint32_t> node_;  // id -> its node
    std::vector<std::uint8_t> taken_;  // id -> taken out
    std::uint32_t remaining_ = 0;
};
