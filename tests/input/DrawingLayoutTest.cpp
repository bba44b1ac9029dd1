#include <gtest/gtest.h>

#include "host/drawing/VRKDrawingLayout.h"

namespace {

struct Placed {
    VRKPrintParameters params;
    VRKDrawingLayout::Placement placement;
    std::string error;
    bool ok = false;
};

Placed place(const VRKDrawingLayout& layout, float width, float height) {
    Placed p;
    p.ok = layout.Place(width, height, p.params, p.placement, p.error);
    return p;
}

TEST(DrawingLayout, NamedFormsAreUprightIsoSheets) {
    VRKDrawingLayout::Form form;
    std::string error;
    ASSERT_TRUE(VRKDrawingLayout::ParseForm("A4", form, error));
    EXPECT_EQ(form.width, 210.0f);
    EXPECT_EQ(form.height, 297.0f);
    ASSERT_TRUE(VRKDrawingLayout::ParseForm("a0", form, error));
    EXPECT_EQ(form.width, 841.0f);
    EXPECT_EQ(form.height, 1189.0f);
    ASSERT_TRUE(VRKDrawingLayout::ParseForm("A2", form, error));
    EXPECT_EQ(form.width, 420.0f);
    EXPECT_EQ(form.height, 594.0f);
}

TEST(DrawingLayout, WidthByHeightInMillimetres) {
    VRKDrawingLayout::Form form;
    std::string error;
    ASSERT_TRUE(VRKDrawingLayout::ParseForm("914.4x1219.2", form, error));
    EXPECT_EQ(form.width, 914.4f);
    EXPECT_EQ(form.height, 1219.2f);
    ASSERT_TRUE(VRKDrawingLayout::ParseForm("100X50", form, error));
    EXPECT_EQ(form.width, 100.0f);
    EXPECT_EQ(form.height, 50.0f);
}

TEST(DrawingLayout, BadFormsAreRefusedWithTheirText) {
    VRKDrawingLayout::Form form{1.0f, 2.0f};
    std::string error;
    for (const char* text :
         {"A5", "x", "100x", "x100", "-100x100", "0x10", "10x1e9", "10x10mm", "nanxnan", ""}) {
        EXPECT_FALSE(VRKDrawingLayout::ParseForm(text, form, error)) << text;
        EXPECT_EQ(error, std::string("the form '") + text +
                             "' is neither A4, A3, A2, A1, A0 nor WIDTHxHEIGHT in millimetres "
                             "(up to 100000)");
    }
    EXPECT_EQ(form.width, 1.0f);
}

TEST(DrawingLayout, WithoutAFormTheSheetIsTheDrawing) {
    const Placed p = place(VRKDrawingLayout{}, 100.0f, 60.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.params.GetForm().GetWidth(), 100.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 60.0f);
    EXPECT_EQ(p.params.GetForm().GetOrientation(), 1);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.placement.dx, 0.0f);
    EXPECT_EQ(p.placement.dy, 0.0f);
}

TEST(DrawingLayout, MarginsWithoutAFormGrowTheSheet) {
    VRKDrawingLayout layout;
    layout.margins = 10.0f;
    const Placed p = place(layout, 100.0f, 60.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.params.GetForm().GetWidth(), 120.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 80.0f);
    EXPECT_EQ(p.placement.dx, 10.0f);
    EXPECT_EQ(p.placement.dy, 10.0f);
}

TEST(DrawingLayout, OnAFormTheDrawingKeepsItsSizeAtTheTopLeft) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    layout.margins = 5.0f;
    const Placed p = place(layout, 100.0f, 100.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.placement.dx, 5.0f);
    EXPECT_EQ(p.placement.dy, 192.0f);  // 297 - 5 - 100
}

TEST(DrawingLayout, FitScalesToTheFormInsideTheMarginsCentred) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    layout.fit = true;
    layout.margins = 5.0f;
    const Placed p = place(layout, 100.0f, 50.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.placement.scale, 2.0f);  // 200 / 100 across, 287 / 50 up
    EXPECT_EQ(p.placement.dx, 5.0f);
    EXPECT_EQ(p.placement.dy, 5.0f + (287.0f - 100.0f) / 2.0f);
}

TEST(DrawingLayout, LandscapeTurnsTheFormAndLaysTheDrawingAlongItsLongSide) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    layout.landscape = true;
    layout.fit = true;
    const Placed p = place(layout, 297.0f, 105.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.params.GetForm().GetWidth(), 210.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 297.0f);
    EXPECT_EQ(p.params.GetForm().GetOrientation(), 0);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.placement.dx, 0.0f);
    EXPECT_EQ(p.placement.dy, 52.5f);
}

TEST(DrawingLayout, MarginsThatLeaveNothingAreAnError) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    layout.margins = 105.0f;
    const Placed p = place(layout, 10.0f, 10.0f);
    EXPECT_FALSE(p.ok);
    EXPECT_EQ(p.error, "margins of 105 mm leave nothing of the form");
}

TEST(DrawingLayout, FitWhenLargerKeepsADrawingThatFits) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    layout.fitWhenLarger = true;
    layout.margins = 5.0f;
    const Placed p = place(layout, 200.0f, 100.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.placement.dx, 5.0f);
    EXPECT_EQ(p.placement.dy, 192.0f);
}

TEST(DrawingLayout, FitWhenLargerScalesADrawingThatDoesNotFit) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    layout.fitWhenLarger = true;
    layout.margins = 5.0f;
    const Placed p = place(layout, 400.0f, 100.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.placement.scale, 0.5f);  // 200 / 400
    EXPECT_EQ(p.placement.dx, 5.0f);
    EXPECT_EQ(p.placement.dy, 5.0f + (287.0f - 50.0f) / 2.0f);
}

TEST(DrawingLayout, ARollIsAsLongAsTheDrawing) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{600.0f, 0.0f};
    layout.margins = 5.0f;
    const Placed p = place(layout, 300.0f, 1000.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.params.GetForm().GetWidth(), 600.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 1010.0f);
    EXPECT_EQ(p.params.GetForm().GetOrientation(), 1);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.placement.dx, 5.0f);
    EXPECT_EQ(p.placement.dy, 5.0f);
}

TEST(DrawingLayout, FitOnARollScalesToItsWidth) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{410.0f, 0.0f};
    layout.margins = 5.0f;
    layout.fit = true;
    const Placed p = place(layout, 100.0f, 50.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.params.GetForm().GetWidth(), 410.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 210.0f);  // 50 * 4 + 10
    EXPECT_EQ(p.placement.scale, 4.0f);
    EXPECT_EQ(p.placement.dx, 5.0f);
    EXPECT_EQ(p.placement.dy, 5.0f);
}

TEST(DrawingLayout, FitWhenLargerOnARollScalesOnlyAWiderDrawing) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{410.0f, 0.0f};
    layout.margins = 5.0f;
    layout.fitWhenLarger = true;
    Placed p = place(layout, 400.0f, 50.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 60.0f);
    p = place(layout, 800.0f, 100.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.placement.scale, 0.5f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 60.0f);
}

TEST(DrawingLayout, LandscapeOnARollRunsTheDrawingAlongIt) {
    VRKDrawingLayout layout;
    layout.form = VRKDrawingLayout::Form{600.0f, 0.0f};
    layout.landscape = true;
    const Placed p = place(layout, 1000.0f, 300.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.params.GetForm().GetWidth(), 600.0f);
    EXPECT_EQ(p.params.GetForm().GetHeight(), 1000.0f);
    EXPECT_EQ(p.params.GetForm().GetOrientation(), 0);
    EXPECT_EQ(p.placement.scale, 1.0f);
    EXPECT_EQ(p.placement.dx, 0.0f);
    EXPECT_EQ(p.placement.dy, 300.0f);  // 600 across the roll - 300
}

}  // namespace
