// The HP-GL import dialog's answer: OK with a printer or with the user's pens, Cancel and the close
// box, through real mouse and keyboard events on the offscreen platform.

#include <QKeyEvent>

#include "dialogs/ImportDialogFixture.h"
#include "host/dialogs/VRKDlgRadioButton.h"

namespace {

// The default pen table with the pens that kMixedPrinters gives a printer.
VRKPenTable DefaultsWith(std::vector<std::pair<int, VRKPen>> changed) {
    VRKPenTable table = VRKPrintHPGLProperties().GetPenTable();
    for (const auto& [slot, pen] : changed) {
        table.Slots()[static_cast<std::size_t>(slot)] = pen;
    }
    return table;
}

// A record whose pens differ from every printer's: 5 pens, pen 2 blue and wide.
VRKPenTable CallersPens() {
    VRKPenTable table = VRKPrintHPGLProperties().GetPenTable();
    table.SetCount(5);
    table.Slots()[2] = VRKPen{0, 0, 255, 3.0f, 0};
    return table;
}

TEST_F(ImportDialog, OkTakesTheFirstPrintersPens) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    pens.SetOrigin(3);
    Open(0, &pens);
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"0:A3 plotter"}));
    EXPECT_EQ(ends, (std::vector<bool>{true}));
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(pens.GetPenTable(), DefaultsWith({{1, VRKPen{10, 20, 30, 0.5f, 0}}}));
    EXPECT_EQ(pens.GetPenCount(), 32);
    // Only the pens come over: the printer's origin does not.
    EXPECT_EQ(pens.GetOrigin(), 3);
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 0);
}

TEST_F(ImportDialog, OkTakesTheChosenPrintersPens) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(0, &pens);
    ChoosePrinter(1);
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"0:A0 plotter"}));
    EXPECT_EQ(pens.GetPenTable(),
              DefaultsWith({{2, VRKPen{40, 50, 60, 1.25f, 1}}, {7, VRKPen{1, 2, 3, 0.75f, 0}}}));
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 1);
    // The shared pens are the user's, not a printer's.
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(),
              VRKPrintHPGLProperties().GetPenTable());
}

TEST_F(ImportDialog, APrinterWithoutPensGivesTheDefaultPens) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(0, &pens);
    ChoosePrinter(2);
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"0:Plain plotter"}));
    EXPECT_EQ(pens.GetPenTable(), VRKPrintHPGLProperties().GetPenTable());
}

TEST_F(ImportDialog, WithoutAGivenRecordOkStillNamesThePrinter) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    ChoosePrinter(1);
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"0:A0 plotter"}));
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(),
              VRKPrintHPGLProperties().GetPenTable());
}

TEST_F(ImportDialog, APrinterWithoutAGeneratorKeepsThePensButIsNamed) {
    // Settings of another language: the printer gives no generator, hence no pens.
    WritePrinters(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Printers>\n"
        "<Printer name=\"odd\" language=\"HPGL\" description=\"Odd plotter\" "
        "destination=\"/dev/null\">\n"
        "  <HP4000GL2Properties printQuality=\"DRAFT\"/>\n"
        "</Printer>\n"
        "</Printers>\n");
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(0, &pens);
    EXPECT_EQ(W<VRKDlgCombo>("HPGLListPrinters").GetLine(0), "Odd plotter");
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"0:Odd plotter"}));
    EXPECT_EQ(pens.GetPenTable(), CallersPens());
}

TEST_F(ImportDialog, OkOnTheUsersPensNamesNoPrinter) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(0, &pens);
    ChoosePrinter(1);
    Click(W<VRKDlgRadioButton>("HPGLPens"));
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"1:"}));
    EXPECT_EQ(ends, (std::vector<bool>{true}));
    // No printer was taken: neither its pens nor its place in the list.
    EXPECT_EQ(pens.GetPenTable(), CallersPens());
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 0);
}

TEST_F(ImportDialog, OptionOneAnswersOneOnOk) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(1, &pens);
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"1:"}));
    EXPECT_EQ(pens.GetPenTable(), CallersPens());
}

TEST_F(ImportDialog, CancelSendsNothing) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(0, &pens);
    ChoosePrinter(1);
    ClickCancel(*dialog);
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(pens.GetPenTable(), CallersPens());
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 0);
}

TEST_F(ImportDialog, TheCloseBoxSendsNothing) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties pens;
    pens.SetPenTable(CallersPens());
    Open(0, &pens);
    ChoosePrinter(2);
    QWidget* window = VRKDlgQtWidget(*dialog);
    window->close();
    VRKDlgApplication::ProcessEvents();
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(pens.GetPenTable(), CallersPens());
    EXPECT_EQ(VRKPrintHPGLImportDialog::GetRememberedPrinter(), 0);
}

TEST_F(ImportDialog, EscapeSendsNothing) {
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    QWidget* window = VRKDlgQtWidget(*dialog);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_Escape);
    VRKDlgApplication::ProcessEvents();
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(ends, (std::vector<bool>{false}));
}

}  // namespace
