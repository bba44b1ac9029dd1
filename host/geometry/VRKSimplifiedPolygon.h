#pragma once

// One piece of an area reduced to its non-zero form: an outer ring with its holes, such that an
// even-odd fill of the rings covers exactly that piece. SimplifyPolygonAndGetWindingNumber
// allocates it; the caller frees the two arrays with delete[] and then the record with delete.
struct VRKSimplifiedPolygon {
    int nbPolygons = 0;       // rings: the outer one first, then its holes
    int* nbPoints = nullptr;  // vertices of each ring
    float* points = nullptr;  // x, y pairs of all rings one after another, millimetres
    int windingNumber = 0;    // non-zero: the piece lies inside the area
};
