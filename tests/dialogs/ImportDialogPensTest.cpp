// The HP-GL import dialog's pens button: the pen dialog it opens on the shared pens, and what that
// dialog's OK and Cancel do to them, through real mouse events on the offscreen platform.

#include <QTreeWidget>

#include "dialogs/ImportDialogFixture.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"

namespace {

class ImportPens : public ImportDialog {
  protected:
    // Shared pens with pen 4 at 1.5 mm and the origin at the centre.
    void ShareWidePen4() {
        VRKPenTable table = VRKPrintHPGLImportDialog::SharedPens().GetPenTable();
        table.Slots()[4].width = 1.5f;
        VRKPrintHPGLImportDialog::SharedPens().SetPenTable(table);
        VRKPrintHPGLImportDialog::SharedPens().SetOrigin(0);
        shared = table;
    }
    // Pushes the pens button and returns the pen dialog it opened.
    VRKPrintHPGLDialog* PushPens() {
        Click(W<VRKDlgPushButton>("HPGLPensButton"));
        VRKDlgApplication::ProcessEvents();
        return dialog->GetPenDialog();
    }
    void ClickRow(VRKPrintHPGLDialog& pens, int row) {
        auto* tree =
            static_cast<QTreeWidget*>(VRKDlgQtWidget(*pens.FindChild<VRKDlgMultiList>("PenList")));
        tree->scrollToItem(tree->topLevelItem(row));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(tree->topLevelItem(row)).center());
    }
    // Opens the pen dialog and turns pen 1 off in it.
    VRKPrintHPGLDialog* OpenAndDisablePen1() {
        VRKPrintHPGLDialog* pens = PushPens();
        if (pens != nullptr) {
            ClickRow(*pens, 0);
            Click(*pens->FindChild<VRKDlgCheckButton>("ActivationCheck"));
        }
        return pens;
    }

    VRKPenTable shared;
};

TEST_F(ImportPens, ThePenDialogOpensOnTheSharedPens) {
    WritePrinters(kMixedPrinters);
    ShareWidePen4();
    VRKPrintHPGLProperties record;
    record.SetPenTable(VRKPenTable{});
    // The caller's record: the shared pens are copied into it before the pen dialog opens.
    Open(0, &record);
    Click(W<VRKDlgRadioButton>("HPGLPens"));
    VRKPrintHPGLDialog* pens = PushPens();
    ASSERT_NE(pens, nullptr);
    EXPECT_EQ(&pens->GetRecord(), &record);
    EXPECT_TRUE(VRKDlgQtWidget(*pens)->isVisible());
    EXPECT_EQ(record.GetPenTable(), shared);
    EXPECT_EQ(record.GetOrigin(), 0);
    auto* list = pens->FindChild<VRKDlgMultiList>("PenList");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->GetLine(3, 1), "1.50 mm");
    EXPECT_EQ(list->GetLine(2, 1), "0.35 mm");
}

TEST_F(ImportPens, ThePenDialogsOkSharesItsPens) {
    WritePrinters(kMixedPrinters);
    ShareWidePen4();
    VRKPrintHPGLProperties record;
    Open(1, &record);
    // Option 1 shared the caller's (default) pens; the button hands them back.
    ShareWidePen4();
    VRKPrintHPGLDialog* pens = OpenAndDisablePen1();
    ASSERT_NE(pens, nullptr);
    ClickOk(*pens);
    EXPECT_EQ(dialog->GetPenDialog(), nullptr);
    VRKPenTable expected = shared;
    expected.Slots()[1].enable = 0;
    EXPECT_EQ(record.GetPenTable(), expected);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), expected);
    // The import dialog is still open, without an answer yet.
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(ends.empty());
    ClickOk(*dialog);
    EXPECT_EQ(Answers(), (std::vector<std::string>{"1:"}));
    EXPECT_EQ(record.GetPenTable(), expected);
}

TEST_F(ImportPens, ThePenDialogsCancelLeavesTheSharedPens) {
    WritePrinters(kMixedPrinters);
    VRKPrintHPGLProperties record;
    Open(1, &record);
    ShareWidePen4();
    VRKPrintHPGLDialog* pens = OpenAndDisablePen1();
    ASSERT_NE(pens, nullptr);
    ClickCancel(*pens);
    EXPECT_EQ(dialog->GetPenDialog(), nullptr);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), shared);
    EXPECT_EQ(record.GetPenTable(), shared);
}

TEST_F(ImportPens, WithoutAGivenRecordThePenDialogWorksOnTheDialogsOwn) {
    WritePrinters(kOtherPrinters);
    ShareWidePen4();
    Open(0, nullptr);
    VRKPrintHPGLDialog* pens = OpenAndDisablePen1();
    ASSERT_NE(pens, nullptr);
    EXPECT_EQ(&pens->GetRecord(), &dialog->GetPens());
    EXPECT_NE(&pens->GetRecord(), &VRKPrintHPGLImportDialog::SharedPens());
    // Nothing is shared before the pen dialog's OK.
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), shared);
    ClickOk(*pens);
    VRKPenTable expected = shared;
    expected.Slots()[1].enable = 0;
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), expected);
}

TEST_F(ImportPens, OnePenDialogAtATime) {
    WritePrinters(kOtherPrinters);
    Open(0, nullptr);
    VRKPrintHPGLDialog* first = PushPens();
    ASSERT_NE(first, nullptr);
    const int children = dialog->GetChildCount();
    EXPECT_EQ(PushPens(), first);
    EXPECT_EQ(dialog->GetChildCount(), children);
}

TEST_F(ImportPens, AfterAResetThePenDialogsSuccessorSharesItsPens) {
    WritePrinters(kOtherPrinters);
    ShareWidePen4();
    Open(0, nullptr);
    VRKPrintHPGLDialog* first = PushPens();
    ASSERT_NE(first, nullptr);
    Click(*first->FindChild<VRKDlgPushButton>("ResetButton"));
    VRKPrintHPGLDialog* next = dialog->GetPenDialog();
    ASSERT_NE(next, nullptr);
    EXPECT_NE(next, first);
    VRKDlgApplication::ProcessEvents();
    ClickOk(*next);
    EXPECT_EQ(dialog->GetPenDialog(), nullptr);
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(),
              VRKPrintHPGLProperties().GetPenTable());
}

TEST_F(ImportPens, EndingTheImportDialogTakesThePenDialogWithIt) {
    WritePrinters(kOtherPrinters);
    ShareWidePen4();
    Open(0, nullptr);
    ASSERT_NE(OpenAndDisablePen1(), nullptr);
    ClickCancel(*dialog);
    EXPECT_EQ(ends, (std::vector<bool>{false}));
    EXPECT_EQ(VRKPrintHPGLImportDialog::SharedPens().GetPenTable(), shared);
}

}  // namespace
