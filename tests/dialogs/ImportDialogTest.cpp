// The HP-GL import dialog when it opens, and its radio buttons, driven through real mouse events
// on the offscreen platform.

#include "dialogs/ImportDialogFixture.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"

namespace {

TEST_F(ImportDialog, ListsTheHPGLPrintersInTheListsOrder) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    auto& list = W<VRKDlgCombo>("HPGLListPrinters");
    ASSERT_EQ(list.GetLineCount(), 3);
    EXPECT_EQ(list.GetLine(0), "A3 plotter");
    EXPECT_EQ(list.GetLine(1), "A0 plotter");
    EXPECT_EQ(list.GetLine(2), "Plain plotter");
    EXPECT_EQ(list.GetSelect(), 0);
    EXPECT_EQ(dialog->GetKey(), "PrintProperties");
    EXPECT_EQ(dialog->GetTitle(), "HP-GL Import");
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPrinters").GetTitle(), "Pens of a printer");
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPens").GetTitle(), "Pens defined here");
    EXPECT_EQ(W<VRKDlgPushButton>("HPGLPensButton").GetTitle(), "Pens...");
}

TEST_F(ImportDialog, TheWidgetsSitOnAGrid) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPrinters").GetGridRow(), 0);
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPrinters").GetGridColumn(), 0);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetGridRow(), 0);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetGridColumn(), 1);
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPens").GetGridRow(), 1);
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPens").GetGridColumn(), 0);
    EXPECT_EQ(W<VRKDlgPushButton>("HPGLPensButton").GetGridRow(), 1);
    EXPECT_EQ(W<VRKDlgPushButton>("HPGLPensButton").GetGridColumn(), 1);
}

TEST_F(ImportDialog, OpensOnThePrintersWhenThereIsOne) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPrinters").GetState());
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPrinters").IsSensitive());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    EXPECT_TRUE(W<VRKDlgCombo>("HPGLListPrinters").IsSensitive());
    EXPECT_FALSE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
}

TEST_F(ImportDialog, AnOptionOtherThanOneOpensOnThePrintersToo) {
    WritePrinters(kMixedPrinters);
    Open(7, nullptr);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPrinters").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    EXPECT_FALSE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
}

TEST_F(ImportDialog, WithoutAnHPGLPrinterOpensOnThePens) {
    WritePrinters(kOtherPrinters);
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetLineCount(), 0);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    EXPECT_TRUE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPrinters").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPrinters").IsSensitive());
    EXPECT_FALSE(W<VRKDlgCombo>("HPGLListPrinters").IsSensitive());
    // The printer choice cannot be taken: a click on it changes nothing, and OK answers the pens.
    Click(W<VRKDlgRadioButton>("HPGLPrinters"));
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPrinters").GetState());
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"1:"}));
    EXPECT_EQ(ends, (std::vector<bool>{true}));
}

TEST_F(ImportDialog, AMissingPrinterListHasNoHPGLPrinter) {
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetLineCount(), 0);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPrinters").IsSensitive());
}

TEST_F(ImportDialog, ARefusedPrinterListHasNoHPGLPrinter) {
    WritePrinters("<Printers><Printer name=\"a\" language=\"HPGL\"/></Printers>\n");
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetLineCount(), 0);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPrinters").IsSensitive());
}

TEST_F(ImportDialog, OptionOneOpensOnThePensAndSharesTheGivenOnes) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    VRKPenTable table = pens.GetPenTable();
    table.Slots()[3] = VRKPen{9, 8, 7, 2.5f, 0};
    table.SetCount(12);
    pens.SetPenTable(table);
    pens.SetOrigin(4);
    Open(1, &pens);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), table);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetOrigin(), 4);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPens").GetState());
    EXPECT_TRUE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
    EXPECT_FALSE(W<VRKDlgRadioButton>("HPGLPrinters").GetState());
    // There are printers: they can still be chosen.
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPrinters").IsSensitive());
    EXPECT_FALSE(W<VRKDlgCombo>("HPGLListPrinters").IsSensitive());
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetLineCount(), 3);
}

TEST_F(ImportDialog, OptionOneWithoutPensKeepsTheSharedOnes) {
    WritePrinters(kMixedPrinters);
    VRKPenTable table = VRKPrintHPGLImportDialog::SharedPens().GetPenTable();
    table.Slots()[5].width = 1.5f;
    VRKPrintHPGLImportDialog::SharedPens().SetPenTable(table);
    Open(1, nullptr);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), table);
    EXPECT_TRUE(W<VRKDlgRadioButton>("HPGLPens").GetState());
}

TEST_F(ImportDialog, OptionZeroLeavesTheSharedPens) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    VRKPenTable table = pens.GetPenTable();
    table.Slots()[1].red = 99;
    pens.SetPenTable(table);
    Open(0, &pens);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(),
              VRKPrintHPGLProperties().GetPenTable());
}

TEST_F(ImportDialog, TheRadioButtonsActAsAPair) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    auto& printers = W<VRKDlgRadioButton>("HPGLPrinters");
    auto& pens = W<VRKDlgRadioButton>("HPGLPens");
    Click(pens);
    EXPECT_TRUE(pens.GetState());
    EXPECT_FALSE(printers.GetState());
    EXPECT_TRUE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
    EXPECT_FALSE(W<VRKDlgCombo>("HPGLListPrinters").IsSensitive());
    // A click on the checked button keeps it checked.
    Click(pens);
    EXPECT_TRUE(pens.GetState());
    EXPECT_FALSE(printers.GetState());
    EXPECT_TRUE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
    Click(printers);
    EXPECT_TRUE(printers.GetState());
    EXPECT_FALSE(pens.GetState());
    EXPECT_TRUE(W<VRKDlgCombo>("HPGLListPrinters").IsSensitive());
    EXPECT_FALSE(W<VRKDlgPushButton>("HPGLPensButton").IsSensitive());
    Click(printers);
    EXPECT_TRUE(printers.GetState());
    EXPECT_TRUE(W<VRKDlgCombo>("HPGLListPrinters").IsSensitive());
}

TEST_F(ImportDialog, TheChosenPrinterIsSelectedAgainOnOpening) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    ChoosePrinter(2);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetSelect(), 2);
    ClickOk(*dialog);
    ASSERT_EQ(dialog, nullptr);
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 2);
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetSelect(), 2);
    // A choice cancelled is not remembered.
    ChoosePrinter(1);
    ClickCancel(*dialog);
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetSelect(), 2);
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 2);
}

TEST_F(ImportDialog, ARememberedPrinterTheListLostFallsBackToTheFirst) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLImportDialog::SetRememberedPrinter(3);
    Open(0, nullptr);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetSelect(), 0);
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 3);
}

}  // namespace
