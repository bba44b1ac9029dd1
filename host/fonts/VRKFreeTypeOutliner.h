#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/core/VRKTextOutliner.h"
#include "host/fonts/VRKGlyphPath.h"

// The host's text outliner: glyph outlines from a TrueType (or any other scalable) font file
// read with FreeType. Loading VRKHostFonts installs one for the host's default font, so that a
// program that links the library gets its text drawn as geometry.
//
// - The face is loaded once, at the first text, and kept. A font that cannot be loaded (missing
//   file, not a scalable font) is reported once on standard error and not tried again; every
//   call then returns false and draws nothing.
// - Size is the cap height: the height of the capital letters, taken from the font's OS/2 table
//   when it gives one, else the top of its "H" (DejaVu Sans: 1493 of 2048 units), else 0.7 em.
// - The text box runs down to the font's descender line (DejaVu Sans: -483 units).
// - Pairs are kerned from the font's kerning table when it has one.
// - A character the font lacks is drawn as the font's .notdef glyph; control characters
//   (U+0000 to U+001F, U+007F) are left out and do not advance; bytes that are not UTF-8 count as
//   U+FFFD.
// - Weight: VRKWeightBold thickens every stroke by 1/24 em and VRKWeightExtraBold by 1/16 em
//   (rounded down to an even number of font units; 84 and 128 of 2048 for DejaVu Sans). A glyph
//   grows by that much to the right, with its advance, and by half of it above and below: a
//   capital then reaches half the thickening over the size and under the baseline. The lighter
//   weights draw the face as it is.
// - A slant is clamped to -89..89 degrees.
class VRKFreeTypeOutliner final : public VRKTextOutliner {
  public:
    // The host's default font (VRKFont::GetDefaultFont()), looked up at the first text.
    VRKFreeTypeOutliner();
    // A given font file.
    explicit VRKFreeTypeOutliner(std::string fontPath);
    ~VRKFreeTypeOutliner() override;

    bool Outline(const VRKUnicodeString& text, float x, float y, float size, float direction,
                 float slant, int anchor, int weight, Outlines& out) override;
    bool OutlineInPieces(const VRKUnicodeString& text, float x, float y, float size,
                         float direction, float slant, int anchor, int weight,
                         const Take& take) override;

    // The same text as exact curves: appends one path per drawn glyph, placed as Outline places
    // it. Outline is these paths flattened within kFlatness.
    bool OutlinePaths(const VRKUnicodeString& text, float x, float y, float size, float direction,
                      float slant, int anchor, int weight, std::vector<VRKGlyphPath>& glyphs);

    // The font file, once known (the default font is looked up at the first text).
    std::string GetFontPath();
    // Why the font cannot be used; empty while it can (or has not been tried yet).
    std::string GetError();

  private:
    struct Face;

    // Loads the face at the first call; true when it is usable. Called with mutex_ held.
    bool Load();
    // Lays out the text, then hands each drawn glyph's path to `each` in text order. Called with
    // mutex_ held.
    bool Paths(const VRKUnicodeString& text, float x, float y, float size, float direction,
               float slant, int anchor, int weight, const std::function<void(VRKGlyphPath&)>& each);

    // FreeType faces are not safe to share between threads; one outliner serves the process.
    std::mutex mutex_;
    std::string path_;
    bool useDefaultFont_ = false;
    bool tried_ = false;
    std::unique_ptr<Face> face_;
    std::string error_;
};
