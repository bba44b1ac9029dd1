#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "host/geometry/VRKPolygonGeometry.h"
#include "host/geometry/VRKSimplifiedPolygon.h"

namespace {

struct Pieces {
    VRKRawCollPV coll;
    ~Pieces() {
        for (int i = 1; i <= coll.Size(); ++i) {
            auto* piece = static_cast<VRKSimplifiedPolygon*>(coll[i]);
            delete[] piece->nbPoints;
            delete[] piece->points;
            delete piece;
        }
    }
    const VRKSimplifiedPolygon& operator[](int i) const {
        return *static_cast<const VRKSimplifiedPolygon*>(coll[i]);
    }
};

double ringArea(const float* xy, int n) {
    double twice = 0;
    for (int k = 0; k < n; ++k) {
        const int m = (k + 1) % n;
        twice += static_cast<double>(xy[2 * k]) * xy[2 * m + 1] -
                 static_cast<double>(xy[2 * m]) * xy[2 * k + 1];
    }
    return std::fabs(twice) / 2;
}

// Area an even-odd fill of the piece covers: the outer ring less its holes.
double evenOddArea(const VRKSimplifiedPolygon& piece) {
    double area = 0;
    const float* p = piece.points;
    for (int r = 0; r < piece.nbPolygons; ++r) {
        area += (r == 0 ? 1 : -1) * ringArea(p, piece.nbPoints[r]);
        p += 2 * piece.nbPoints[r];
    }
    return area;
}

TEST(SimplifyPolygon, TwoOverlappingSquaresBecomeTheirUnion) {
    const int counts[] = {4, 4};
    const float xy[] = {0, 0, 4, 0, 4, 4, 0, 4, 2, 2, 6, 2, 6, 6, 2, 6};
    Pieces pieces;
    SimplifyPolygonAndGetWindingNumber(2, counts, xy, pieces.coll);
    ASSERT_EQ(pieces.coll.Size(), 1);
    EXPECT_EQ(pieces[1].nbPolygons, 1);
    EXPECT_NE(pieces[1].windingNumber, 0);
    EXPECT_NEAR(evenOddArea(pieces[1]), 28.0, 1e-6);
}

TEST(SimplifyPolygon, SelfIntersectingStarFillsItsCentre) {
    // A pentagram: even-odd leaves the pentagon in the middle empty, non-zero fills it.
    std::vector<float> xy;
    for (int k = 0; k < 5; ++k) {
        const double a = M_PI / 2 + k * 4 * M_PI / 5;
        xy.push_back(static_cast<float>(10 * std::cos(a)));
        xy.push_back(static_cast<float>(10 * std::sin(a)));
    }
    const int counts[] = {5};
    Pieces pieces;
    SimplifyPolygonAndGetWindingNumber(1, counts, xy.data(), pieces.coll);
    ASSERT_EQ(pieces.coll.Size(), 1);
    const VRKSimplifiedPolygon& star = pieces[1];
    EXPECT_EQ(star.nbPolygons, 1);
    EXPECT_EQ(star.nbPoints[0], 10);  // the outline of the star, no hole
    // Area of a regular pentagram of circumradius 10: 5 * r^2 * sin(36) * sin(18) / sin(126)...
    // computed from its ten corners instead: outer radius 10, inner radius 10 * 0.381966.
    const double inner = 10 * std::cos(2 * M_PI / 5) / std::cos(M_PI / 5);
    const double expected = 10 * 0.5 * 10 * inner * std::sin(M_PI / 5);
    EXPECT_NEAR(evenOddArea(star), expected, 1e-3);
}

TEST(SimplifyPolygon, HoleStaysAHoleAndIslandIsItsOwnPiece) {
    // Outer square, a reversed inner square (a hole under non-zero), and an island in the hole.
    const int counts[] = {4, 4, 4};
    const float xy[] = {0, 0, 10, 0, 10, 10, 0, 10, 2, 2, 2, 8, 8, 8, 8, 2, 4, 4, 6, 4, 6, 6, 4, 6};
    Pieces pieces;
    SimplifyPolygonAndGetWindingNumber(3, counts, xy, pieces.coll);
    ASSERT_EQ(pieces.coll.Size(), 2);
    EXPECT_EQ(pieces[1].nbPolygons, 2);
    EXPECT_NEAR(evenOddArea(pieces[1]), 100.0 - 36.0, 1e-6);
    EXPECT_EQ(pieces[2].nbPolygons, 1);
    EXPECT_NEAR(evenOddArea(pieces[2]), 4.0, 1e-6);
}

TEST(SimplifyPolygon, InvalidInputGivesNothing) {
    const int negative[] = {-1};
    const float xy[] = {0, 0};
    Pieces pieces;
    SimplifyPolygonAndGetWindingNumber(0, negative, xy, pieces.coll);
    SimplifyPolygonAndGetWindingNumber(1, nullptr, xy, pieces.coll);
    SimplifyPolygonAndGetWindingNumber(1, negative, xy, pieces.coll);
    EXPECT_EQ(pieces.coll.Size(), 0);
}

TEST(SingleSort, SortsAndGivesThePermutation) {
    float values[] = {3.5f, -1.0f, 2.0f, -1.0f, 0.0f};
    int order[5];
    SingleSort(values, 5, order);
    const float sorted[] = {-1.0f, -1.0f, 0.0f, 2.0f, 3.5f};
    const int expected[] = {1, 3, 4, 2, 0};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(values[i], sorted[i]);
        EXPECT_EQ(order[i], expected[i]);
    }
}

}  // namespace
