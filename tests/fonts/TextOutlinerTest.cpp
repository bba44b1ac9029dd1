#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPrintTextAttribute.h"
#include "host/core/VRKTextOutliner.h"
#include "host/fonts/VRKFreeTypeOutliner.h"
#include "tests/fonts/FontMetrics.h"

namespace {

// The outliner computes in double and hands out floats: at the magnitudes of these tests (under
// 200 mm) a float is within 8e-6 mm of the double, so 2e-5 mm separates rounding from error.
constexpr double kRounding = 2e-5;

struct Box {
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();
};

Box boxOf(const VRKTextOutliner::Outlines& o) {
    Box b;
    for (std::size_t i = 0; i + 1 < o.points.size(); i += 2) {
        b.left = std::min<double>(b.left, o.points[i]);
        b.right = std::max<double>(b.right, o.points[i]);
        b.bottom = std::min<double>(b.bottom, o.points[i + 1]);
        b.top = std::max<double>(b.top, o.points[i + 1]);
    }
    return b;
}

void expectBox(const Box& actual, double left, double bottom, double right, double top) {
    EXPECT_NEAR(actual.left, left, kRounding);
    EXPECT_NEAR(actual.bottom, bottom, kRounding);
    EXPECT_NEAR(actual.right, right, kRounding);
    EXPECT_NEAR(actual.top, top, kRounding);
}

// Checks the outlines hang together: counts add up to the points.
void expectConsistent(const VRKTextOutliner::Outlines& o) {
    long contours = 0;
    for (const int c : o.glyphContours) {
        EXPECT_GT(c, 0);
        contours += c;
    }
    EXPECT_EQ(contours, static_cast<long>(o.contourPoints.size()));
    long points = 0;
    for (const int n : o.contourPoints) {
        EXPECT_GE(n, 3);
        points += n;
    }
    EXPECT_EQ(2 * points, static_cast<long>(o.points.size()));
}

VRKTextOutliner::Outlines outline(const char* text, float x, float y, float size,
                                  float direction = 0.0f, float slant = 0.0f,
                                  int anchor = VRKAnchorBaseLeft, int weight = VRKWeightNormal) {
    VRKFreeTypeOutliner outliner(dejavu::kPath);
    VRKTextOutliner::Outlines out;
    EXPECT_TRUE(outliner.Outline(text, x, y, size, direction, slant, anchor, weight, out))
        << outliner.GetError();
    expectConsistent(out);
    return out;
}

// mm per font unit at a 10 mm cap height.
constexpr double k10 = 10.0 / dejavu::kCapHeight;
// Pen position of "O" in "HELLO", and the advance of the whole word (font units).
constexpr double kPenO =
    dejavu::kAdvanceH + dejavu::kAdvanceE + 2 * dejavu::kAdvanceL + dejavu::kKernLO;
constexpr double kHelloAdvance = kPenO + dejavu::kAdvanceO;

TEST(FreeTypeOutliner, PiecesAddUpToTheWholeText) {
    // 150 glyphs that draw and a blank every tenth character, right-anchored so that the layout
    // of the whole text places every piece.
    std::string text;
    for (int i = 0; i < 165; ++i) {
        text += i % 11 == 10 ? ' ' : static_cast<char>('A' + i % 26);
    }
    const VRKTextOutliner::Outlines whole =
        outline(text.c_str(), 5, 7, 3, 30, 10, VRKAnchorBaseRight, VRKWeightBold);
    ASSERT_EQ(whole.glyphContours.size(), 150u);

    VRKFreeTypeOutliner outliner(dejavu::kPath);
    VRKTextOutliner::Outlines joined;
    std::vector<std::size_t> pieces;
    ASSERT_TRUE(outliner.OutlineInPieces(text, 5, 7, 3, 30, 10, VRKAnchorBaseRight, VRKWeightBold,
                                         [&](const VRKTextOutliner::Outlines& piece) {
                                             pieces.push_back(piece.glyphContours.size());
                                             for (const int c : piece.glyphContours)
                                                 joined.glyphContours.push_back(c);
                                             for (const int n : piece.contourPoints)
                                                 joined.contourPoints.push_back(n);
                                             for (const float v : piece.points)
                                                 joined.points.push_back(v);
                                         }));
    EXPECT_EQ(pieces, (std::vector<std::size_t>{64, 64, 22}));
    EXPECT_EQ(joined.glyphContours, whole.glyphContours);
    EXPECT_EQ(joined.contourPoints, whole.contourPoints);
    EXPECT_EQ(joined.points, whole.points);
}

TEST(FreeTypeOutliner, NoPieceForATextThatDrawsNothing) {
    VRKFreeTypeOutliner outliner(dejavu::kPath);
    int calls = 0;
    EXPECT_TRUE(outliner.OutlineInPieces("   ", 0, 0, 3, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal,
                                         [&](const VRKTextOutliner::Outlines&) { ++calls; }));
    EXPECT_EQ(calls, 0);
}

TEST(FreeTypeOutliner, HelloExtentAlongX) {
    const auto o = outline("HELLO", 0.0f, 0.0f, 10.0f);
    ASSERT_EQ(o.glyphContours.size(), 5u);
    // H, E, L, L have one contour each, O two.
    EXPECT_EQ(o.glyphContours, (std::vector<int>{1, 1, 1, 1, 2}));
    expectBox(boxOf(o), dejavu::kHLeft * k10, dejavu::kOBottom * k10,
              (kPenO + dejavu::kORight) * k10, dejavu::kOTop * k10);
}

TEST(FreeTypeOutliner, SizeIsTheCapHeight) {
    const auto o = outline("H", 0.0f, 0.0f, 10.0f);
    const Box b = boxOf(o);
    EXPECT_NEAR(b.top - b.bottom, 10.0, kRounding);
    EXPECT_NEAR(b.left, dejavu::kHLeft * k10, kRounding);
    EXPECT_NEAR(b.right, dejavu::kHRight * k10, kRounding);
}

TEST(FreeTypeOutliner, HelloExtentAtNinetyDegreesFromAPosition) {
    // Turned a quarter counter-clockwise: the writing goes up, the tops of the letters face -x.
    const auto o = outline("HELLO", 100.0f, 50.0f, 10.0f, 90.0f);
    expectBox(boxOf(o), 100.0 - dejavu::kOTop * k10, 50.0 + dejavu::kHLeft * k10,
              100.0 - dejavu::kOBottom * k10, 50.0 + (kPenO + dejavu::kORight) * k10);
}

TEST(FreeTypeOutliner, DirectionTurnsAboutThePosition) {
    // At 180 degrees the text runs toward -x upside down: the box is the 0-degree one mirrored
    // through the position.
    const auto o = outline("HELLO", 20.0f, 10.0f, 10.0f, 180.0f);
    expectBox(boxOf(o), 20.0 - (kPenO + dejavu::kORight) * k10, 10.0 - dejavu::kOTop * k10,
              20.0 - dejavu::kHLeft * k10, 10.0 - dejavu::kOBottom * k10);
}

TEST(FreeTypeOutliner, MiddleCenterCentresTheBoxOnThePoint) {
    // "H" sits symmetrically in its advance (201 units on either side), so the box of its
    // outline is the text box: centred on the point.
    const auto o = outline("H", 30.0f, 40.0f, 10.0f, 0.0f, 0.0f, VRKAnchorMiddleCenter);
    const double halfWidth = (dejavu::kHRight - dejavu::kHLeft) / 2.0 * k10;
    expectBox(boxOf(o), 30.0 - halfWidth, 35.0, 30.0 + halfWidth, 45.0);
}

TEST(FreeTypeOutliner, EveryAnchorMovesTheBoxByItsPoint) {
    // The text box of "HELLO": along, 0 to its advance; across, descender, baseline, half the
    // size, the size.
    const double along[3] = {0.0, kHelloAdvance / 2.0, kHelloAdvance};
    const double across[4] = {0.0, dejavu::kDescender, dejavu::kCapHeight / 2.0,
                              dejavu::kCapHeight};
    for (int anchor = VRKAnchorBaseLeft; anchor <= VRKAnchorTopRight; ++anchor) {
        SCOPED_TRACE(anchor);
        const double du = along[(anchor - VRKAnchorBaseLeft) / 4];
        const double dv = across[(anchor - VRKAnchorBaseLeft) % 4];
        const auto o = outline("HELLO", 0.0f, 0.0f, 10.0f, 0.0f, 0.0f, anchor);
        expectBox(boxOf(o), (dejavu::kHLeft - du) * k10, (dejavu::kOBottom - dv) * k10,
                  (kPenO + dejavu::kORight - du) * k10, (dejavu::kOTop - dv) * k10);
    }
}

TEST(FreeTypeOutliner, UnknownAnchorIsBaseLeft) {
    const auto plain = outline("HE", 5.0f, 5.0f, 10.0f);
    EXPECT_EQ(outline("HE", 5.0f, 5.0f, 10.0f, 0.0f, 0.0f, 0).points, plain.points);
    EXPECT_EQ(outline("HE", 5.0f, 5.0f, 10.0f, 0.0f, 0.0f, 40).points, plain.points);
    EXPECT_EQ(outline("HE", 5.0f, 5.0f, 10.0f, 0.0f, 0.0f, INT_MIN).points, plain.points);
    EXPECT_EQ(outline("HE", 5.0f, 5.0f, 10.0f, 0.0f, 0.0f, INT_MAX).points, plain.points);
}

TEST(FreeTypeOutliner, AnchorFollowsTheDirection) {
    // Top-right at 90 degrees: the end of the writing (up) and the tops (toward -x) meet at the
    // point.
    const auto o = outline("H", 0.0f, 0.0f, 10.0f, 90.0f, 0.0f, VRKAnchorTopRight);
    expectBox(boxOf(o), 0.0, (dejavu::kHLeft - dejavu::kAdvanceH) * k10, 10.0,
              (dejavu::kHRight - dejavu::kAdvanceH) * k10);
}

TEST(FreeTypeOutliner, SlantShiftsTheTopTowardTheWriting) {
    const double shift = 10.0 * std::tan(30.0 * std::numbers::pi / 180.0);
    const auto o = outline("H", 0.0f, 0.0f, 10.0f, 0.0f, 30.0f);
    // The feet stay on the baseline where they were; the tops move by size * tan(slant).
    expectBox(boxOf(o), dejavu::kHLeft * k10, 0.0, dejavu::kHRight * k10 + shift, 10.0);
    double topLeft = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < o.points.size(); i += 2) {
        if (std::abs(o.points[i + 1] - 10.0) < kRounding) {
            topLeft = std::min<double>(topLeft, o.points[i]);
        }
    }
    EXPECT_NEAR(topLeft, dejavu::kHLeft * k10 + shift, kRounding);

    // A negative slant leans the other way.
    const auto back = outline("H", 0.0f, 0.0f, 10.0f, 0.0f, -30.0f);
    expectBox(boxOf(back), dejavu::kHLeft * k10 - shift, 0.0, dejavu::kHRight * k10, 10.0);
}

TEST(FreeTypeOutliner, SlantShearsAboutTheAnchor) {
    // Middle-center: the middle line stays, the top moves forward and the baseline back by half.
    const double shift = 5.0 * std::tan(20.0 * std::numbers::pi / 180.0);
    const double halfWidth = (dejavu::kHRight - dejavu::kHLeft) / 2.0 * k10;
    const auto o = outline("H", 0.0f, 0.0f, 10.0f, 0.0f, 20.0f, VRKAnchorMiddleCenter);
    expectBox(boxOf(o), -halfWidth - shift, -5.0, halfWidth + shift, 5.0);
}

TEST(FreeTypeOutliner, SlantFollowsTheDirection) {
    // Writing up (+y), the tops face -x and lean up.
    const double shift = 10.0 * std::tan(30.0 * std::numbers::pi / 180.0);
    const auto o = outline("H", 0.0f, 0.0f, 10.0f, 90.0f, 30.0f);
    expectBox(boxOf(o), -10.0, dejavu::kHLeft * k10, 0.0, dejavu::kHRight * k10 + shift);
}

TEST(FreeTypeOutliner, KerningPullsPairsTogether) {
    const auto av = outline("AV", 0.0f, 0.0f, 10.0f);
    EXPECT_NEAR(boxOf(av).right, (dejavu::kAdvanceA + dejavu::kKernAV + dejavu::kVRight) * k10,
                kRounding);
}

TEST(FreeTypeOutliner, SpaceAdvancesWithoutAGlyph) {
    const auto o = outline("H H", 0.0f, 0.0f, 10.0f);
    EXPECT_EQ(o.glyphContours, (std::vector<int>{1, 1}));
    EXPECT_NEAR(boxOf(o).right, (dejavu::kAdvanceH + dejavu::kAdvanceSpace + dejavu::kHRight) * k10,
                kRounding);
}

TEST(FreeTypeOutliner, MissingCharacterIsTheNotdefGlyph) {
    // U+4E00 is not in DejaVu Sans: its .notdef glyph (a box with a box hole) stands in.
    const auto o = outline("\xE4\xB8\x80", 0.0f, 0.0f, 10.0f);
    EXPECT_EQ(o.glyphContours, (std::vector<int>{2}));
    expectBox(boxOf(o), dejavu::kNotdefLeft * k10, dejavu::kNotdefBottom * k10,
              dejavu::kNotdefRight * k10, dejavu::kNotdefTop * k10);
    // And it advances the pen by its own width.
    const auto after = outline("\xE4\xB8\x80H", 0.0f, 0.0f, 10.0f);
    EXPECT_NEAR(boxOf(after).right, (dejavu::kAdvanceNotdef + dejavu::kHRight) * k10, kRounding);
}

TEST(FreeTypeOutliner, InvalidUtf8IsTheReplacementCharacter) {
    EXPECT_EQ(outline("\xFF", 0.0f, 0.0f, 10.0f).points,
              outline("\xEF\xBF\xBD", 0.0f, 0.0f, 10.0f).points);
}

TEST(FreeTypeOutliner, ControlCharactersAreLeftOut) {
    EXPECT_EQ(outline("H\nE\t", 0.0f, 0.0f, 10.0f).points, outline("HE", 0.0f, 0.0f, 10.0f).points);
}

TEST(FreeTypeOutliner, BoldThickensTheStrokes) {
    // 1/24 em, rounded down to even, is 84 units wider and higher, the height split 42 below
    // the baseline and 42 above the cap height.
    const auto o = outline("H", 0.0f, 0.0f, 10.0f, 0.0f, 0.0f, VRKAnchorBaseLeft, VRKWeightBold);
    expectBox(boxOf(o), dejavu::kHLeft * k10, -42.0 * k10, (dejavu::kHRight + 84.0) * k10,
              (dejavu::kHTop + 42.0) * k10);
    // The advance grows with the strokes.
    const auto two =
        outline("HH", 0.0f, 0.0f, 10.0f, 0.0f, 0.0f, VRKAnchorBaseLeft, VRKWeightExtraBold);
    EXPECT_NEAR(boxOf(two).right, (dejavu::kAdvanceH + 128.0 + dejavu::kHRight + 128.0) * k10,
                kRounding);
    // The light weights draw the face as it is.
    EXPECT_EQ(outline("H", 0.0f, 0.0f, 10.0f, 0.0f, 0.0f, VRKAnchorBaseLeft, VRKWeightLight).points,
              outline("H", 0.0f, 0.0f, 10.0f).points);
}

TEST(FreeTypeOutliner, NothingToDrawIsNotAnError) {
    VRKFreeTypeOutliner outliner(dejavu::kPath);
    VRKTextOutliner::Outlines out;
    EXPECT_TRUE(outliner.Outline("", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_TRUE(outliner.Outline("H", 0, 0, 0, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_TRUE(outliner.Outline("H", 0, 0, -5, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_TRUE(outliner.Outline("H", std::numeric_limits<float>::quiet_NaN(), 0, 10, 0, 0,
                                 VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_TRUE(outliner.Outline("   ", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_TRUE(out.glyphContours.empty());
    EXPECT_TRUE(out.contourPoints.empty());
    EXPECT_TRUE(out.points.empty());
    EXPECT_EQ(outliner.GetError(), "");
}

TEST(FreeTypeOutliner, OutlinesAreAppended) {
    VRKFreeTypeOutliner outliner(dejavu::kPath);
    VRKTextOutliner::Outlines out;
    ASSERT_TRUE(outliner.Outline("H", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    const auto first = out;
    ASSERT_TRUE(outliner.Outline("O", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_EQ(out.glyphContours, (std::vector<int>{1, 2}));
    EXPECT_TRUE(std::equal(first.points.begin(), first.points.end(), out.points.begin()));
}

TEST(FreeTypeOutliner, MissingFontFileGivesNoContoursAndNoCrash) {
    VRKFreeTypeOutliner outliner("/nonexistent/fonts/NoSuchFont.ttf");
    VRKTextOutliner::Outlines out;
    out.glyphContours = {7};
    out.contourPoints = {3};
    out.points = {1, 2, 3, 4, 5, 6};
    const auto before = out;
    EXPECT_FALSE(
        outliner.Outline("HELLO", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_EQ(out.glyphContours, before.glyphContours);
    EXPECT_EQ(out.contourPoints, before.contourPoints);
    EXPECT_EQ(out.points, before.points);
    EXPECT_NE(outliner.GetError().find("/nonexistent/fonts/NoSuchFont.ttf"), std::string::npos);
    // Loaded once: the second text fails the same way without trying again.
    EXPECT_FALSE(outliner.Outline("H", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_EQ(out.points, before.points);
}

TEST(FreeTypeOutliner, FileThatIsNoFontGivesNoContours) {
    const std::string path = VRKEnvironment::TemporaryDirectory() + "vrk-not-a-font.ttf";
    {
        std::ofstream file(path, std::ios::binary);
        file << "this is not a font";
    }
    VRKFreeTypeOutliner outliner(path);
    VRKTextOutliner::Outlines out;
    EXPECT_FALSE(outliner.Outline("H", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_TRUE(out.points.empty());
    EXPECT_FALSE(outliner.GetError().empty());
    std::remove(path.c_str());
}

TEST(FreeTypeOutliner, DefaultFontComesFromTheEnvironment) {
    ::setenv("VRK_DEFAULT_FONT", "/nonexistent/Other.ttf", 1);
    VRKFreeTypeOutliner outliner;
    VRKTextOutliner::Outlines out;
    EXPECT_FALSE(outliner.Outline("H", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_EQ(outliner.GetFontPath(), "/nonexistent/Other.ttf");
    ::unsetenv("VRK_DEFAULT_FONT");

    VRKFreeTypeOutliner standard;
    EXPECT_TRUE(standard.Outline("H", 0, 0, 10, 0, 0, VRKAnchorBaseLeft, VRKWeightNormal, out));
    EXPECT_EQ(standard.GetFontPath(), dejavu::kPath);
}

TEST(FreeTypeOutliner, LinkingTheLibraryInstallsAnOutliner) {
    VRKTextOutliner* installed = VRKTextOutliner::Installed();
    ASSERT_NE(installed, nullptr);
    EXPECT_NE(dynamic_cast<VRKFreeTypeOutliner*>(installed), nullptr);
}

TEST(TextOutliner, InstallReplacesAndRemoves) {
    VRKTextOutliner* saved = VRKTextOutliner::Installed();
    VRKFreeTypeOutliner other(dejavu::kPath);
    VRKTextOutliner::Install(&other);
    EXPECT_EQ(VRKTextOutliner::Installed(), &other);
    VRKTextOutliner::Install(nullptr);
    EXPECT_EQ(VRKTextOutliner::Installed(), nullptr);
    VRKTextOutliner::Install(saved);
    EXPECT_EQ(VRKTextOutliner::Installed(), saved);
}

}  // namespace
