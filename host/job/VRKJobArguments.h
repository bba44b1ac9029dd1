#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/core/VRKPrintParameters.h"

// The arguments of one line, as its verb's kinds read them: one value for each kind in the order
// of the verb table, and the arrays and settings of the kinds that take the rest of the line.
// The arrays are the player's, kept from line to line for their memory.
struct VRKJobArguments {
    // The most kinds a verb has.
    static constexpr std::size_t kMostValues = 8;
    // A number or integer argument (kPoints and kPolygons keep their count in `integer`).
    struct Value {
        float number;
        int integer;
    };

    Value values[kMostValues];
    // The kText argument, pointing into the lexer's token.
    const std::string* text;
    // Coordinates of kPoints and kPolygons, the values of kPixelSize and kDashes.
    std::vector<float>& points;
    // The vertex counts of kPolygons.
    std::vector<int>& counts;
    // kPageKeys: the page's settings, which start as the caller sets them, and whether any key
    // was given.
    VRKPrintParameters& page;
    bool pageGiven;
};
