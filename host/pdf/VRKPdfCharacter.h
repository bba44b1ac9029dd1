#pragma once

#include <string>

// One character of a page's text as the PDF renderer's text layer reads it: what it is, the box
// it takes on the page and the font it is shown in. Coordinates are points from the top left
// corner of the page as it is shown (after /Rotate), the y axis pointing down, the same space
// the page's SVG rendering is in. Characters come in reading order; a line break is a
// character "\n" with an empty box.
struct VRKPdfCharacter {
    std::string utf8;
    // The box: from (x1, y1) to (x2, y2). Along the text's direction it runs from the glyph's
    // origin to the origin of the glyph after it; across, from the font's descent to its ascent.
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
    // The font's name without a subset prefix ("DejaVuSans-Bold"), and its size in points on
    // the page.
    std::string font;
    double size = 0.0;
    // False for text a plotter's font cannot stand for: a font without a name, as a Type 3
    // font (whose glyphs are drawn by procedures of its own) is.
    bool plain = true;
};
