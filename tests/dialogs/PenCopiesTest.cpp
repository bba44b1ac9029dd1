// The HP-GL pen dialog's copies of a pen table: colour indices, list cells, edits and write-back.

#include <gtest/gtest.h>

#include "dialogs/VRKPrintHPGLPenCopies.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

using Copies = VRKPrintHPGLPenCopies;

TEST(PenCopies, ColourIndexOfTheNamedColoursAndOthers) {
    EXPECT_EQ(Copies::ColorIndexOf(0, 0, 0), 0);
    EXPECT_EQ(Copies::ColorIndexOf(255, 0, 0), 1);
    EXPECT_EQ(Copies::ColorIndexOf(0, 255, 0), 2);
    EXPECT_EQ(Copies::ColorIndexOf(255, 255, 0), 3);
    EXPECT_EQ(Copies::ColorIndexOf(0, 0, 255), 4);
    EXPECT_EQ(Copies::ColorIndexOf(255, 0, 255), 5);
    EXPECT_EQ(Copies::ColorIndexOf(0, 255, 255), 6);
    // Truncated first: 254.9 red is 254, which no named colour has.
    EXPECT_EQ(Copies::ColorIndexOf(254.9f, 0, 0), 7);
    EXPECT_EQ(Copies::ColorIndexOf(255.9f, 0.5f, 0.99f), 1);
    EXPECT_EQ(Copies::ColorIndexOf(255, 255, 255), 7);
}

TEST(PenCopies, DefaultRecordListsPensOneToThirtyOne) {
    const VRKPrintHPGLProperties record;
    const Copies copies(record);
    EXPECT_EQ(copies.RowCount(), 31);
    EXPECT_EQ(Copies::PenOfRow(0), 1);
    // White pen 0, then black, red, green, yellow, blue, magenta, cyan, then black pens.
    EXPECT_EQ(copies.ColorIndex(0), 7);
    EXPECT_EQ(copies.ColorIndex(1), 0);
    EXPECT_EQ(copies.ColorIndex(2), 1);
    EXPECT_EQ(copies.ColorIndex(4), 3);
    EXPECT_EQ(copies.ColorIndex(7), 6);
    EXPECT_EQ(copies.ColorIndex(8), 0);
}

TEST(PenCopies, OnePenListsNoRow) {
    VRKPrintHPGLProperties record;
    VRKPenTable table = record.GetPenTable();
    table.SetCount(1);
    record.SetPenTable(table);
    EXPECT_EQ(Copies(record).RowCount(), 0);
    table.SetCount(0);
    record.SetPenTable(table);
    EXPECT_EQ(Copies(record).RowCount(), 0);
}

TEST(PenCopies, Cells) {
    EXPECT_EQ(Copies::NumberCell(12), "12");
    EXPECT_EQ(Copies::WidthCell(0.35f), "0.35 mm");
    EXPECT_EQ(Copies::WidthCell(3.1f), "3.10 mm");
    EXPECT_EQ(Copies::ActivationCell(true), "    +  ");
    EXPECT_EQ(Copies::ActivationCell(false), "       ");
}

TEST(PenCopies, EditsReachTheRecordOnlyWhenWritten) {
    VRKPrintHPGLProperties record;
    Copies copies(record);
    copies.ChooseNamedColor(9, 4);
    copies.ChooseFreeColor(10, 12.5f, 40, 200);
    copies.SetWidth(9, 0.7f);
    copies.SetEnabled(9, true);
    copies.SetEnabled(1, false);
    EXPECT_EQ(copies.ColorIndex(9), 4);
    EXPECT_EQ(copies.ColorIndex(10), 7);
    EXPECT_EQ(record.GetPenTable().Slots()[9], (VRKPen{0, 0, 0, 0.35f, 0}));

    copies.WriteTo(record);
    EXPECT_EQ(record.GetPenTable().Slots()[9], (VRKPen{0, 0, 255, 0.7f, 1}));
    EXPECT_EQ(record.GetPenTable().Slots()[10], (VRKPen{12.5f, 40, 200, 0.35f, 0}));
    EXPECT_EQ(record.GetPenTable().Slots()[1].enable, 0);
    EXPECT_EQ(record.GetPenCount(), 32);
}

TEST(PenCopies, ChoicesOutsideTheTableChangeNothing) {
    VRKPrintHPGLProperties record;
    Copies copies(record);
    copies.ChooseNamedColor(3, 7);  // "..." is not a named colour
    copies.ChooseNamedColor(3, -1);
    copies.ChooseNamedColor(32, 1);  // no such pen
    copies.SetWidth(-1, 2.0f);
    copies.WriteTo(record);
    EXPECT_EQ(record.GetPenTable(), VRKPrintHPGLProperties().GetPenTable());
}

TEST(PenCopies, ResetWritesTheDefaultPensAndKeepsTheOtherSettings) {
    VRKPrintHPGLProperties record;
    Copies copies(record);
    copies.SetWidth(3, 2.5f);
    copies.ChooseNamedColor(3, 0);
    copies.WriteTo(record);
    VRKPenTable fewer = record.GetPenTable();
    fewer.SetCount(5);
    record.SetPenTable(fewer);
    record.SetOrigin(4);
    record.SetRelativeMovePen(0);
    record.SetPrintThickness(1);

    Copies::ResetPens(record);
    EXPECT_EQ(record.GetPenTable(), VRKPrintHPGLProperties().GetPenTable());
    EXPECT_EQ(record.GetOrigin(), 4);
    EXPECT_EQ(record.GetRelativeMovePen(), 0);
    EXPECT_EQ(record.GetPrintThickness(), 1);
}

}  // namespace
