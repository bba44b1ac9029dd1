#pragma once

#include "host/drawing/VRKDrawingLayout.h"

// How a document is to be played: where a drawing goes on the paper, whether its strokes are
// reordered for less pen-up travel, and whether the travel is measured. Job files set their own
// pages and are played as they stand; these options are for drawings (SVG, PDF).
struct VRKDocumentOptions {
    VRKDrawingLayout layout;
    // Strokes grouped by pen and reordered to cut the pen's travel between them.
    bool orderForTravel = false;
    // The layout is the printer's (a spooler's page size) rather than the user's: a job file,
    // which sets its own pages, leaves it unused without a warning.
    bool layoutFromPrinter = false;
    // Measure pen-down length, pen-up travel and pen changes before and after ordering.
    bool stats = false;
    // Text of PDF documents in a plain font drawn as labels in the plotter's own font (false:
    // as the glyphs' filled outlines).
    bool textLabels = false;
};
