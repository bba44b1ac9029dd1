#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "host/core/VRKUnicodeString.h"

// Turns a line of text into filled glyph outlines on the page, for text the host draws as
// geometry. The core only declares this seam; a font library implements it (VRKHostFonts, with
// FreeType) and installs itself when it is loaded. With nothing installed the host draws no text.
//
// What an implementation must give, for every drawn glyph in text order:
// - closed contours (the first point is not repeated at the end), each of at least 3 points,
//   x and y in millimetres, already placed on the page;
// - curves flattened so that no chord is farther than kFlatness from the true curve;
// - contours that are meant to be filled with the non-zero winding rule (the orientation of a
//   hole is the font's).
class VRKTextOutliner {
  public:
    // Largest distance, in millimetres, between a chord of a flattened glyph and the glyph's
    // true curve: one plotter unit.
    static constexpr double kFlatness = 0.025;

    // The outlines of a text, grouped by glyph. Only glyphs with at least one contour are
    // listed: a space advances the pen but adds nothing.
    struct Outlines {
        // Number of contours of each drawn glyph, in text order.
        std::vector<int> glyphContours;
        // Number of points of each contour, glyph after glyph.
        std::vector<int> contourPoints;
        // x, y of every point, contour after contour (millimetres).
        std::vector<float> points;
    };

    VRKTextOutliner() = default;
    virtual ~VRKTextOutliner();
    VRKTextOutliner(const VRKTextOutliner&) = delete;
    VRKTextOutliner& operator=(const VRKTextOutliner&) = delete;

    // Appends the outlines of `text` (one line, UTF-8) to `out`.
    // - (x, y): the page position, in millimetres, where the anchor point of the text's box lies.
    // - size: the height of the capital letters in millimetres (the font's cap height).
    // - direction: degrees counter-clockwise from +x, the direction of writing.
    // - slant: degrees; a positive slant leans the tops of the letters toward the direction of
    //   writing. The text is sheared about its anchor point, so the anchor stays where it is.
    // - anchor: one of VRKAnchorBaseLeft .. VRKAnchorTopRight (28 .. 39). The box runs along the
    //   writing direction from the pen's start to the end of its last advance, and across it from
    //   the font's descender line (bottom) through the baseline and half the size (middle) to the
    //   size (top). Any other value is taken as VRKAnchorBaseLeft.
    // - weight: VRKWeightExtraLight .. VRKWeightExtraBold (23 .. 27); what it does is the
    //   implementation's to say (VRKHostFonts thickens the strokes for the bold weights).
    // Returns false, leaving `out` as it was, when the implementation has no usable font; an
    // empty text, a size that is not positive or a position that is not finite is not an error
    // and adds nothing.
    virtual bool Outline(const VRKUnicodeString& text, float x, float y, float size,
                         float direction, float slant, int anchor, int weight, Outlines& out) = 0;

    // The most glyphs OutlineInPieces hands over at once.
    static constexpr std::size_t kGlyphsPerPiece = 64;
    using Take = std::function<void(const Outlines&)>;
    // The same outlines as Outline gives, handed to `take` in pieces of at most kGlyphsPerPiece
    // glyphs, in text order, so that a long text costs the memory of one piece and not of all
    // its glyphs. Returns false, having called `take` for nothing, when Outline would. The
    // default outlines the whole text and hands it over as one piece.
    virtual bool OutlineInPieces(const VRKUnicodeString& text, float x, float y, float size,
                                 float direction, float slant, int anchor, int weight,
                                 const Take& take);

    // The process-wide outliner that the host's default DrvDrawText uses, or null. Install does
    // not take ownership; installing null takes the current one out.
    static void Install(VRKTextOutliner* outliner);
    static VRKTextOutliner* Installed();
};
