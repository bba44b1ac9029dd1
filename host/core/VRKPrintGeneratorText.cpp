// The default DrvDrawText: text drawn as geometry, each glyph's outline filled in the draw colour.

#include <cstddef>

#include "host/core/VRKPrintGenerator.h"

void VRKPrintGenerator::DrvDrawText(float x, float y, const VRKUnicodeString& text) {
    VRKTextOutliner* outliner = VRKTextOutliner::Installed();
    if (outliner == nullptr || text.IsEmpty()) {
        return;
    }
    // Glyph contours wind the font's way: a hole turns against its letter, and overlapping
    // parts of a composed glyph (an accent on its letter) must not cancel. Only the non-zero
    // rule fills both right. Text takes the draw colour, as lines do, so the glyphs are filled
    // with the draw colour selected as the fill colour. The rule and the colour are switched
    // before the first glyph drawn and back after the last; a text that draws nothing writes
    // nothing.
    TextFillState state{fillRule_};
    try {
        outliner->OutlineInPieces(text, x, y, textSize_, textDirection_, textSlant_, textAnchor_,
                                  textWeight_, [&](const VRKTextOutliner::Outlines& glyphs) {
                                      BeginTextFill(state);
                                      FillGlyphs(glyphs);
                                  });
    } catch (...) {
        EndTextFill(state);
        throw;
    }
    EndTextFill(state);
}

void VRKPrintGenerator::BeginTextFill(TextFillState& state) {
    if (state.started) {
        return;
    }
    state.started = true;
    if (state.previousRule != 1) {
        DrvSetPolygonFillRule(1);
        state.ruleSwitched = true;
    }
    if (fillColor_ != drawColor_) {
        DrvSelectFillColor(drawColor_);
        state.colourSwitched = true;
    }
}

void VRKPrintGenerator::EndTextFill(const TextFillState& state) {
    if (state.colourSwitched) {
        // The fill colour of the drawing again. A generator that takes up a pen when a colour
        // is selected (a pen plotter) holds the fill colour's pen after that: the draw colour
        // is selected again so that the lines after the text are drawn with its pen, as they
        // are after any fill.
        DrvSelectFillColor(fillColor_);
        DrvSelectDrawColor(drawColor_);
    }
    if (state.ruleSwitched) {
        DrvSetPolygonFillRule(state.previousRule);
    }
}

void VRKPrintGenerator::FillGlyphs(const VRKTextOutliner::Outlines& glyphs) {
    const int* counts = glyphs.contourPoints.data();
    const float* points = glyphs.points.data();
    // One area per glyph keeps each fill small, as a plotter's polygon buffer wants it.
    for (const int contours : glyphs.glyphContours) {
        DrvFillArea(contours, counts, points);
        for (int i = 0; i < contours; ++i) {
            points += 2 * static_cast<std::ptrdiff_t>(counts[i]);
        }
        counts += contours;
    }
}
