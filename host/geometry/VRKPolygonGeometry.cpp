#include "host/geometry/VRKPolygonGeometry.h"

#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <cmath>
#include <new>
#include <numeric>
#include <vector>

#include "host/geometry/VRKSimplifiedPolygon.h"

namespace {

// Clipper works on integers: 1 unit is 0.1 micrometre, far below a plotter unit.
constexpr double kScale = 10000.0;

void appendPiece(const ClipperLib::PolyNode& outer, VRKRawCollPV& pieces) {
    std::vector<const ClipperLib::Path*> rings{&outer.Contour};
    for (const ClipperLib::PolyNode* hole : outer.Childs) {
        rings.push_back(&hole->Contour);
    }
    std::size_t vertices = 0;
    for (const ClipperLib::Path* ring : rings) {
        vertices += ring->size();
    }
    auto* piece = new (std::nothrow) VRKSimplifiedPolygon;
    if (piece == nullptr) {
        return;
    }
    piece->nbPoints = new (std::nothrow) int[rings.size()];
    piece->points = new (std::nothrow) float[2 * vertices];
    if (piece->nbPoints == nullptr || piece->points == nullptr) {
        delete[] piece->nbPoints;
        delete[] piece->points;
        delete piece;
        return;
    }
    piece->nbPolygons = static_cast<int>(rings.size());
    piece->windingNumber = 1;
    float* out = piece->points;
    for (std::size_t r = 0; r < rings.size(); ++r) {
        piece->nbPoints[r] = static_cast<int>(rings[r]->size());
        for (const ClipperLib::IntPoint& p : *rings[r]) {
            *out++ = static_cast<float>(static_cast<double>(p.X) / kScale);
            *out++ = static_cast<float>(static_cast<double>(p.Y) / kScale);
        }
    }
    pieces.Append(piece);
}

void collect(const ClipperLib::PolyNode& node, VRKRawCollPV& pieces) {
    for (const ClipperLib::PolyNode* child : node.Childs) {
        // Children of the root and of holes are outer rings; their children are their holes.
        if (!child->IsHole()) {
            appendPiece(*child, pieces);
        }
        collect(*child, pieces);
    }
}

}  // namespace

void SimplifyPolygonAndGetWindingNumber(int nbPolygons, const int* nbPoints, const float* points,
                                        VRKRawCollPV& pieces) {
    if (nbPolygons < 1 || nbPoints == nullptr || points == nullptr) {
        return;
    }
    ClipperLib::Paths paths(static_cast<std::size_t>(nbPolygons));
    const float* p = points;
    for (int i = 0; i < nbPolygons; ++i) {
        if (nbPoints[i] < 0) {
            return;
        }
        for (int k = 0; k < nbPoints[i]; ++k, p += 2) {
            if (!std::isfinite(p[0]) || !std::isfinite(p[1])) {
                return;
            }
            paths[static_cast<std::size_t>(i)].emplace_back(
                static_cast<ClipperLib::cInt>(std::llround(p[0] * kScale)),
                static_cast<ClipperLib::cInt>(std::llround(p[1] * kScale)));
        }
    }
    try {
        ClipperLib::Clipper clipper;
        clipper.AddPaths(paths, ClipperLib::ptSubject, true);
        ClipperLib::PolyTree tree;
        clipper.Execute(ClipperLib::ctUnion, tree, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
        collect(tree, pieces);
    } catch (...) {
        // Clipper throws on coordinates beyond its range: such input has no fill.
    }
}

void SingleSort(float* values, int count, int* order) {
    if (values == nullptr || order == nullptr || count < 1) {
        return;
    }
    std::iota(order, order + count, 0);
    std::stable_sort(order, order + count,
                     [values](int a, int b) { return values[a] < values[b]; });
    std::vector<float> sorted(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        sorted[static_cast<std::size_t>(i)] = values[order[i]];
    }
    std::copy(sorted.begin(), sorted.end(), values);
}
