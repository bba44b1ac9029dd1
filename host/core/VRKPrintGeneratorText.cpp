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
    } else if (fillColorLent_) {
        // An earlier text still holds the generator's fill colour, and the drawing's colours are
        // now one: selecting it gives it back and fills this text in it.
        DrvSelectFillColor(fillColor_);
        fillColorLent_ = false;
    }
}

void VRKPrintGenerator::EndTextFill(const TextFillState& state) {
    if (state.colourSwitched) {
        // A generator that takes up a pen when a colour is selected (a pen plotter) holds the
        // pen of the colour selected last. When that was the fill colour, it is selected again
        // now, and the lines after the text are drawn with its pen as before. When it was the
        // draw colour, the pen in hand is already the right one: the fill colour is lent to the
        // text until a call that fills, which gets it back first (ReturnFillColor), and no pen
        // is changed for nothing.
        if (fillSelectedLast_) {
            DrvSelectFillColor(fillColor_);
        } else {
            fillColorLent_ = true;
        }
    }
    if (state.ruleSwitched) {
        DrvSetPolygonFillRule(state.previousRule);
    }
}

void VRKPrintGenerator::ReturnFillColor() {
    if (!fillColorLent_) {
        return;
    }
    fillColorLent_ = false;
    // The fill colour, then the draw colour again: the pen in hand stays the draw colour's.
    DrvSelectFillColor(fillColor_);
    DrvSelectDrawColor(drawColor_);
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
