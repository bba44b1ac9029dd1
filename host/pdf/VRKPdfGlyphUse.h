#pragma once

#include <cstddef>
#include <string>

// A <use> of a glyph symbol in the content of a page's SVG rendering, as cairo writes a shown
// glyph: where its element is in the SVG text, the glyph's origin, and which drawing call and
// paint it came with; and, once matched to the page's text, which character it draws.
struct VRKPdfGlyphUse {
    std::size_t start = 0;  // of "<use"
    std::size_t end = 0;    // after "/>"
    double x = 0.0;         // the origin, in points from the top left, y down
    double y = 0.0;
    std::size_t call = 0;   // glyphs drawn in one call share it
    std::size_t group = 0;  // calls that follow one another with one paint share it
    std::string font;       // the symbol's font: "glyph3-" for "#glyph3-12"
    // Along the baseline, unit length, and the character box edge the origin is on: 0 the
    // left (text to the right), 1 the top (text down the page), 2 the right, 3 the bottom.
    double dx = 1.0;
    double dy = 0.0;
    int axis = 0;
    int character = -1;  // index of the character drawn, -1 none
};
