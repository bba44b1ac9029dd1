#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKPrintTextAttribute.h"
#include "host/core/VRKTextOutliner.h"
#include "host/fonts/VRKFreeTypeOutliner.h"
#include "tests/fonts/FontMetrics.h"

namespace {

// A generator that records the hooks the default DrvDrawText calls, with the fill rule in force
// at each fill.
class TextRecorder : public VRKPrintGenerator {
  public:
    struct Fill {
        int rule;
        std::vector<int> counts;
        std::vector<float> points;
    };

    TextRecorder() : VRKPrintGenerator("TEST") {}

    // "R<rule>" for a fill rule change, "F<contours>" for a fill, "D<index>" and "C<index>" for
    // a draw and a fill colour selection, "M" and "L" for moves and lines.
    std::string log;
    std::vector<Fill> fills;
    // The fill with this number (from 1) throws after it is logged, as one that runs out of
    // memory would.
    int throwAtFill = 0;

  protected:
    void DrvSelectDrawColor(int index) override { log += "D" + std::to_string(index) + ";"; }
    void DrvSelectFillColor(int index) override { log += "C" + std::to_string(index) + ";"; }
    void DrvSetPolygonFillRule(int rule) override {
        log += "R" + std::to_string(rule) + ";";
        VRKPrintGenerator::DrvSetPolygonFillRule(rule);
    }
    void DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) override {
        log += "F" + std::to_string(nbPolygons) + ";";
        Fill fill{GetPolygonFillRule(), {nbPoints, nbPoints + nbPolygons}, {}};
        long total = 0;
        for (int i = 0; i < nbPolygons; ++i) {
            total += nbPoints[i];
        }
        fill.points.assign(points, points + 2 * total);
        fills.push_back(std::move(fill));
        if (static_cast<int>(fills.size()) == throwAtFill) {
            throw std::bad_alloc();
        }
    }
    void DrvMoveTo(float, float) override { log += "M;"; }
    void DrvLineTo(float, float) override { log += "L;"; }
};

// Keeps the process's outliner as it was, whatever a test installs.
class DrawText : public ::testing::Test {
  protected:
    void SetUp() override {
        saved_ = VRKTextOutliner::Installed();
        // The installed outliner reads the default font at its first text: make it DejaVu Sans.
        if (const char* font = std::getenv("VRK_DEFAULT_FONT")) {
            savedFont_ = font;
        }
        ::unsetenv("VRK_DEFAULT_FONT");
    }
    void TearDown() override {
        VRKTextOutliner::Install(saved_);
        if (savedFont_) {
            ::setenv("VRK_DEFAULT_FONT", savedFont_->c_str(), 1);
        }
    }

  private:
    VRKTextOutliner* saved_ = nullptr;
    std::optional<std::string> savedFont_;
};

TEST_F(DrawText, EachGlyphIsOneNonZeroFill) {
    ASSERT_NE(VRKTextOutliner::Installed(), nullptr);
    TextRecorder r;
    r.SetPolygonFillRule(0);
    r.SetTextAttribute(VRKTextSize, 10.0f);
    r.log.clear();
    r.DrawText(20.0f, 30.0f, "HELLO");
    // Rule set to non-zero, five glyphs (O has its hole), the even-odd rule back.
    EXPECT_EQ(r.log, "R1;F1;F1;F1;F1;F2;R0;");
    ASSERT_EQ(r.fills.size(), 5u);
    for (const auto& fill : r.fills) {
        EXPECT_EQ(fill.rule, 1);
    }
    EXPECT_EQ(r.GetPolygonFillRule(), 0);
    EXPECT_FALSE(r.HasFailed());
}

TEST_F(DrawText, FillsAreTheOutlinerOutlinesWithTheKeptAttributes) {
    TextRecorder r;
    r.SetTextAttribute(VRKTextSize, 7.5f);
    r.SetTextAttribute(VRKTextDirection, 30.0f);
    r.SetTextAttribute(VRKTextSlant, 12.0f);
    r.SetTextAttribute(VRKTextAnchor, VRKAnchorTopRight);
    r.SetTextAttribute(VRKTextWeight, VRKWeightBold);
    r.DrawText(100.0f, 50.0f, "Ag é");

    VRKFreeTypeOutliner outliner(dejavu::kPath);
    VRKTextOutliner::Outlines expected;
    ASSERT_TRUE(outliner.Outline("Ag é", 100.0f, 50.0f, 7.5f, 30.0f, 12.0f, VRKAnchorTopRight,
                                 VRKWeightBold, expected));
    ASSERT_EQ(r.fills.size(), expected.glyphContours.size());
    ASSERT_EQ(r.fills.size(), 3u);
    std::vector<int> counts;
    std::vector<float> points;
    for (std::size_t g = 0; g < r.fills.size(); ++g) {
        EXPECT_EQ(static_cast<int>(r.fills[g].counts.size()), expected.glyphContours[g]);
        counts.insert(counts.end(), r.fills[g].counts.begin(), r.fills[g].counts.end());
        points.insert(points.end(), r.fills[g].points.begin(), r.fills[g].points.end());
    }
    EXPECT_EQ(counts, expected.contourPoints);
    EXPECT_EQ(points, expected.points);
}

TEST_F(DrawText, EnumerationValuesBeyondTheIntegersHoldAtTheirLimits) {
    TextRecorder r;
    r.SetTextAttribute(VRKTextAnchor, 1e38f);
    r.SetTextAttribute(VRKTextFont, -1e38f);
    r.SetTextAttribute(VRKTextWeight, std::nanf(""));
    EXPECT_EQ(r.GetTextAnchor(), 2147483647);
    EXPECT_EQ(r.GetTextFont(), -2147483647 - 1);
    EXPECT_EQ(r.GetTextWeight(), 0);
    // An anchor that names no anchor places the text at its base left.
    r.SetTextAttribute(VRKTextAnchor, -1e38f);
    EXPECT_EQ(r.GetTextAnchor(), -2147483647 - 1);
    VRKFreeTypeOutliner outliner(dejavu::kPath);
    VRKTextOutliner::Install(&outliner);
    r.DrawText(10.0f, 20.0f, "H");
    VRKTextOutliner::Outlines expected;
    ASSERT_TRUE(outliner.Outline("H", 10.0f, 20.0f, r.GetTextSize(), 0.0f, 0.0f, VRKAnchorBaseLeft,
                                 VRKWeightNormal, expected));
    ASSERT_EQ(r.fills.size(), 1u);
    EXPECT_EQ(r.fills[0].points, expected.points);
}

TEST_F(DrawText, RuleAlreadyNonZeroIsLeftAlone) {
    TextRecorder r;
    r.SetPolygonFillRule(1);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "H H");
    EXPECT_EQ(r.log, "F1;F1;");
    EXPECT_EQ(r.GetPolygonFillRule(), 1);
}

TEST_F(DrawText, GlyphsAreFilledInTheDrawColour) {
    TextRecorder r;
    r.SetPolygonFillRule(0);
    r.SelectDrawColor(3);
    r.SelectFillColor(5);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "HI");
    // The rule, then the draw colour as fill colour; after the glyphs the fill colour (selected
    // last, so a pen plotter takes its pen up again at once) and the rule.
    EXPECT_EQ(r.log, "R1;C3;F1;F1;C5;R0;");
    EXPECT_EQ(r.GetDrawColor(), 3);
    EXPECT_EQ(r.GetFillColor(), 5);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "I");
    EXPECT_EQ(r.log, "R1;C3;F1;C5;R0;");
}

TEST_F(DrawText, EqualColoursSelectNothing) {
    TextRecorder r;
    r.SetPolygonFillRule(1);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "HI");  // both colours 0 before any selection
    EXPECT_EQ(r.log, "F1;F1;");
    r.SelectDrawColor(7);
    r.SelectFillColor(7);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "HI");
    EXPECT_EQ(r.log, "F1;F1;");
}

TEST_F(DrawText, TheColourFollowsTheLastSelections) {
    TextRecorder r;
    r.SetPolygonFillRule(1);
    r.SelectDrawColor(2);  // fill colour still 0
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "I");
    // The draw colour was selected last: its pen stays in hand, and the fill colour is lent to
    // the text until something is filled.
    EXPECT_EQ(r.log, "C2;F1;");
    r.SelectFillColor(2);
    r.SelectDrawColor(9);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "I");
    EXPECT_EQ(r.log, "C9;F1;");
}

TEST_F(DrawText, ALentFillColourComesBackBeforeTheNextFill) {
    TextRecorder r;
    r.SetPolygonFillRule(1);
    r.SelectFillColor(5);
    r.SelectDrawColor(3);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "I");
    EXPECT_EQ(r.log, "C3;F1;");
    // Lines need no colour back; a fill, a filled circle and a filled ellipse do: the fill
    // colour, then the draw colour so that the pen in hand stays the draw colour's.
    r.log.clear();
    const int count = 3;
    const float xy[] = {0, 0, 10, 0, 0, 10};
    r.FillArea(1, &count, xy);
    EXPECT_EQ(r.log, "C5;D3;F1;");
    r.log.clear();
    r.FillArea(1, &count, xy);
    EXPECT_EQ(r.log, "F1;");
    // Once given back, a second text lends it again.
    r.DrawText(0.0f, 0.0f, "I");
    r.log.clear();
    r.DrawArcEllipse(0, 0, 5, 5, 0, 6.2831855f, 0, 1);
    EXPECT_EQ(r.log.substr(0, 6), "C5;D3;");
    EXPECT_EQ(r.GetFillColor(), 5);
    EXPECT_EQ(r.GetDrawColor(), 3);
}

TEST_F(DrawText, ALentFillColourIsGivenBackWhenTheColoursBecomeOne) {
    TextRecorder r;
    r.SetPolygonFillRule(1);
    r.SelectFillColor(5);
    r.SelectDrawColor(3);
    r.DrawText(0.0f, 0.0f, "I");
    r.SelectDrawColor(5);
    r.log.clear();
    // The generator still fills in 3: the text selects 5 and the colour is no longer lent.
    r.DrawText(0.0f, 0.0f, "I");
    EXPECT_EQ(r.log, "C5;F1;");
    r.log.clear();
    const int count = 3;
    const float xy[] = {0, 0, 10, 0, 0, 10};
    r.FillArea(1, &count, xy);
    EXPECT_EQ(r.log, "F1;");
}

TEST_F(DrawText, TextWithoutGlyphsSelectsNoColour) {
    TextRecorder r;
    r.SelectDrawColor(1);
    r.SelectFillColor(2);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "   ");
    EXPECT_EQ(r.log, "");
}

TEST_F(DrawText, AFailingFillStillGetsTheColourAndRuleBack) {
    TextRecorder r;
    r.SetPolygonFillRule(0);
    r.SelectDrawColor(1);
    r.SelectFillColor(2);
    r.throwAtFill = 2;
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "HIT");
    EXPECT_EQ(r.log, "R1;C1;F1;F1;C2;R0;");
    EXPECT_TRUE(r.HasFailed());
    EXPECT_EQ(r.GetPolygonFillRule(), 0);
}

TEST_F(DrawText, NoOutlinerDrawsNothing) {
    VRKTextOutliner::Install(nullptr);
    TextRecorder r;
    r.DrawText(0.0f, 0.0f, "HELLO");
    EXPECT_EQ(r.log, "");
    EXPECT_FALSE(r.HasFailed());
}

TEST_F(DrawText, MissingFontDrawsNothing) {
    VRKFreeTypeOutliner missing("/nonexistent/fonts/NoSuchFont.ttf");
    VRKTextOutliner::Install(&missing);
    TextRecorder r;
    r.SetPolygonFillRule(0);
    r.log.clear();
    r.DrawText(0.0f, 0.0f, "HELLO");
    r.DrawText(0.0f, 0.0f, "again");
    EXPECT_EQ(r.log, "");
    EXPECT_FALSE(r.HasFailed());
}

TEST_F(DrawText, SpacesAloneCallNoHook) {
    TextRecorder r;
    r.DrawText(0.0f, 0.0f, "   ");
    r.DrawText(0.0f, 0.0f, "");
    EXPECT_EQ(r.log, "");
}

TEST_F(DrawText, DefaultFillStillDrawsTheGlyphs) {
    // Without a DrvFillArea of its own a generator gets the base's pattern fill, which draws
    // through moves and lines: the text must still reach the plot.
    class Lines : public VRKPrintGenerator {
      public:
        Lines() : VRKPrintGenerator("TEST") {}
        std::string log;

      protected:
        void DrvMoveTo(float, float) override { log += "M"; }
        void DrvLineTo(float, float) override { log += "L"; }
    } g;
    g.DrawText(0.0f, 0.0f, "H");
    ASSERT_FALSE(g.log.empty());
    EXPECT_EQ(g.log.front(), 'M');
    EXPECT_NE(g.log.find('L'), std::string::npos);
}

}  // namespace
