#pragma once

#include "host/core/VRKRawCollPV.h"

// Polygon helpers the host offers to drivers.

// Reduces a set of polygons (millimetres) filled with the non-zero winding rule to pieces that an
// even-odd fill reproduces: the non-zero union, as outer rings each with its holes (an island
// inside a hole is a piece of its own). Appends one VRKSimplifiedPolygon record per piece to
// `pieces`, each with winding number 1; the caller owns and frees them. Invalid input (no
// polygon, null arrays, negative counts) appends nothing.
void SimplifyPolygonAndGetWindingNumber(int nbPolygons, const int* nbPoints, const float* points,
                                        VRKRawCollPV& pieces);

// Sorts `values` ascending in place and writes into `order` the original index of each sorted
// value (order[i] is where values[i] came from). Equal values keep their original order.
void SingleSort(float* values, int count, int* order);
