#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/pdf/VRKPdfCharacter.h"

// Turns the text of a page's SVG rendering into labels. cairo draws each shown glyph as a
// <use> of a glyph symbol at the glyph's origin, within a group that carries the fill colour;
// the page's text layer (VRKPdfCharacter) says which character each glyph is and in which font.
// Each run of glyphs that follow one another along one baseline, in one colour and one plain
// font, is replaced by one <text> element at the first glyph's origin, turned along the run,
// with the font's size, the nearest kind of face and its weight. The SVG importer then makes
// a text of the drawing from it, as for any <text>.
//
// What stays outlines: glyphs no character of the text layer starts at (text drawn as a clip,
// stroked text, patterns), glyphs of Type 3 fonts and of fonts without a name, glyphs painted
// with anything but a plain colour, glyphs in definitions (patterns, masks), and glyphs of a
// font drawn slanted more than 15 degrees. The glyphs come from VRKPdfSvgGlyphs, the kind of
// face from VRKPdfFontKind.
class VRKPdfTextLabels {
  public:
    // Rewrites `svg` in place; the number of labels made.
    static std::size_t Apply(std::string& svg, const std::vector<VRKPdfCharacter>& characters);
};
