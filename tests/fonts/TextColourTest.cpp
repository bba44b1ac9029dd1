// Text drawn as geometry through the HP-GL/2 generator: the glyphs are filled in the draw colour.

#include <gtest/gtest.h>

#include <string>

#include "host/core/VRKTextOutliner.h"
#include "host/fonts/VRKFreeTypeOutliner.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"
#include "tests/fonts/FontMetrics.h"

namespace {

// The plot of an "I" of 10 mm drawn as geometry at (20, 30) after the given colour selections.
std::string plotOfI(int drawColor, int fillColor) {
    HPGL2Peer g;
    VRKPrintParameters params = FormParameters(210, 297, 1);
    params.SetTextAsGeometry(1);
    g.Begin(params);
    g.DefineColor(1, 0, 0, 0);
    g.DefineColor(2, 1, 0, 0);
    g.SelectDrawColor(drawColor);
    g.SelectFillColor(fillColor);
    g.SetTextAttribute(VRKTextSize, 10.0f);
    g.Take();
    g.DrawText(20.0f, 30.0f, "I");
    g.MoveTo(0.0f, 0.0f);
    return g.Take();
}

// DejaVu Sans outlines the text, whatever outliner the process had.
class TextColour : public ::testing::Test {
  protected:
    void SetUp() override {
        saved_ = VRKTextOutliner::Installed();
        VRKTextOutliner::Install(&outliner_);
    }
    void TearDown() override { VRKTextOutliner::Install(saved_); }

  private:
    VRKFreeTypeOutliner outliner_{dejavu::kPath};
    VRKTextOutliner* saved_ = nullptr;
};

TEST_F(TextColour, GlyphsAreFilledWithTheDrawColoursPen) {
    // The fill colour 2 is never taken up: the glyph's polygon (one rectangle) is filled with
    // pen 1, the draw colour, which is already selected, so no SP comes before or after the
    // polygon; the move after the text goes on in a PE of its own.
    EXPECT_EQ(Printable(plotOfI(1, 2)),
              Printable("PU853,1600PM0PEk\xC0\xBF\xBF`\xCBl\xC0\xBF\xBF_\xCB;PM2FP1"
                        "PE=<\xBF\xBF"));
}

TEST_F(TextColour, ThePlotIsTheSameWhateverTheFillColour) {
    EXPECT_EQ(Printable(plotOfI(1, 2)), Printable(plotOfI(1, 1)));
    EXPECT_EQ(Printable(plotOfI(2, 1)), Printable(plotOfI(2, 2)));
}

}  // namespace
