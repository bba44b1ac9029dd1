#pragma once

#include <cstdint>

// What one argument of a job file line is, as the verb table states it. The general path reads
// each kind from the line's tokens and says what is wrong with it; the reading of common lines
// reads the number kinds straight from the read buffer.
enum class VRKJobArgumentKind : std::uint8_t {
    // A coordinate or size in millimetres: a number whose plotter units fit the plotter's range
    // (VRKPlotterRange), for the generator takes it as it is.
    kLength,
    // A number in the range of a float: an angle, or any value that is not a length.
    kNumber,
    // An integer in the range of int: colour indexes and the host's enumeration numbers.
    kInteger,
    // The `filled` flag of an arc: 0 or 1.
    kFilled,
    // A colour component, from 0.0 to 1.0.
    kComponent,
    // A string in double quotes.
    kText,
    // The value of a text attribute: a length for the text size, else a number. It follows the
    // attribute's integer.
    kAttributeValue,
    // The rest of the line: a point count, then the points' coordinates (each a length).
    kPoints,
    // The rest of the line: a polygon count, the polygons' vertex counts, then all their points.
    kPolygons,
    // The rest of the line: nothing, or a pixel width and height (lengths greater than 0).
    kPixelSize,
    // The rest of the line: nothing (the integer form of a line style), or the pattern length and
    // the pattern values (each a length).
    kDashes,
    // The rest of the line: the key=value settings of a page.
    kPageKeys,
};
