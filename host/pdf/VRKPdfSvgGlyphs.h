#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/pdf/VRKPdfGlyphUse.h"

// Reads the glyphs out of a page's SVG rendering as cairo writes it: the glyph symbols in the
// definitions, and a <use> of one for each glyph shown, in a group that carries its paint.
class VRKPdfSvgGlyphs {
  public:
    // The glyph uses of the content after the definitions, in drawing order, with their drawing
    // call and group; only those in a group that fills with a plain colour.
    static std::vector<VRKPdfGlyphUse> Find(const std::string& svg);
    // The fonts (as "glyphN-") whose glyphs are drawn slanted more than 15 degrees off square.
    static std::set<std::string> SlantedFonts(const std::string& svg);
};
