#pragma once

// The number of vertices a fill has to draw, or 0 when it has nothing: no polygon, arrays missing,
// a single polygon without a vertex, no vertex at all, or a negative count (which would walk the
// points backwards).
inline long long fillVertexCount(int nbPolygons, const int* nbPoints, const float* points) {
    if (nbPolygons < 1 || nbPoints == nullptr || points == nullptr) {
        return 0;
    }
    if (nbPolygons == 1 && nbPoints[0] < 1) {
        return 0;
    }
    long long total = 0;
    for (int i = 0; i < nbPolygons; ++i) {
        if (nbPoints[i] < 0) {
            return 0;
        }
        total += nbPoints[i];
    }
    return total;
}
