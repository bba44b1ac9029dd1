// The HP-GL/2 property dialog through real widget events on the offscreen platform.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QTest>
#include <QTreeWidget>

#include "dialogs/VRKPrintHPGL2Dialog.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgSlider.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "tests/dialogs/PropertyDialogEvents.h"

namespace {

class HPGL2Dialog : public ::testing::Test {
  protected:
    void Open() {
        dialog = new VRKPrintHPGL2Dialog(nullptr, &record);
        dialog->SetOnOkDone([this] { ++oks; });
        dialog->Show();
        VRKDlgApplication::ProcessEvents();
    }
    void TearDown() override {
        if (dialog != nullptr && !ended) {
            delete dialog;
        }
        VRKDlgApplication::ProcessEvents();
    }
    template <class T>
    T& W(const std::string& key) {
        return WidgetOf<T>(*dialog, key);
    }
    void Click(const VRKDlgObject& widget) { ClickBox(widget); }
    void Ok() {
        ClickOk(*dialog);
        ended = true;
        VRKDlgApplication::ProcessEvents();
    }
    void Cancel() {
        ClickCancel(*dialog);
        ended = true;
        VRKDlgApplication::ProcessEvents();
    }
    // The HP-GL/2 options and the pen table button: whether each can be used.
    std::vector<bool> Sensitivity() {
        return {W<VRKDlgCheckButton>("EnableCutter").IsSensitive(),
                W<VRKDlgLabel>("MediaType").IsSensitive(),
                W<VRKDlgCombo>("MediaList").IsSensitive(),
                W<VRKDlgLabel>("QualityLevel").IsSensitive(),
                W<VRKDlgSlider>("QualitySlider").IsSensitive(),
                W<VRKDlgPushButton>("HPGLProperties").IsSensitive()};
    }

    VRKPrintHPGL2Properties record;
    VRKPrintHPGL2Dialog* dialog = nullptr;
    bool ended = false;
    int oks = 0;
};

const std::vector<bool> kHPGL2Options = {true, true, true, true, true, false};
const std::vector<bool> kPenTableOnly = {false, false, false, false, false, true};

TEST_F(HPGL2Dialog, OpensOnTheRecord) {
    record.SetCutterState(0);
    record.SetMediaType(3);
    record.SetQuality(74);
    Open();
    EXPECT_FALSE(W<VRKDlgCheckButton>("EnableCutter").GetState());
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetSelect(), 4);
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetLineCount(), 8);
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetLine(7), "Glossy paper");
    EXPECT_EQ(W<VRKDlgSlider>("QualitySlider").GetValue(), 74.0);
    EXPECT_FALSE(W<VRKDlgCheckButton>("HPGLRestriction").GetState());
    EXPECT_EQ(Sensitivity(), kHPGL2Options);
    // OK with nothing changed gives the record back as it was.
    Ok();
    EXPECT_EQ(oks, 1);
    EXPECT_EQ(record.GetCutterState(), 0);
    EXPECT_EQ(record.GetMediaType(), 3);
    EXPECT_EQ(record.GetQuality(), 74);
    EXPECT_EQ(record.GetType(), 0);
}

TEST_F(HPGL2Dialog, TypeOneLeavesOnlyThePenTableButton) {
    record.SetType(1);
    Open();
    EXPECT_TRUE(W<VRKDlgCheckButton>("HPGLRestriction").GetState());
    EXPECT_EQ(Sensitivity(), kPenTableOnly);
    Click(W<VRKDlgCheckButton>("HPGLRestriction"));
    EXPECT_EQ(Sensitivity(), kHPGL2Options);
    Click(W<VRKDlgCheckButton>("HPGLRestriction"));
    EXPECT_EQ(Sensitivity(), kPenTableOnly);
}

TEST_F(HPGL2Dialog, DefaultMediaIsLineZeroAndComesBackAsMinusOne) {
    Open();
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetSelect(), 0);
    EXPECT_EQ(W<VRKDlgCombo>("MediaList").GetLine(0), "Default");
    Ok();
    EXPECT_EQ(record.GetMediaType(), -1);
}

TEST_F(HPGL2Dialog, EditsReachTheRecordOnOk) {
    Open();
    Click(W<VRKDlgCheckButton>("EnableCutter"));
    auto* media = static_cast<QComboBox*>(VRKDlgQtWidget(W<VRKDlgCombo>("MediaList")));
    media->setFocus();
    QTest::keyClick(media, Qt::Key_Down);
    QTest::keyClick(media, Qt::Key_Down);
    QWidget* slider = VRKDlgQtWidget(W<VRKDlgSlider>("QualitySlider"));
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Left);  // 100 down one step of 20
    Click(W<VRKDlgCheckButton>("HPGLRestriction"));
    Ok();
    EXPECT_EQ(record.GetCutterState(), 0);
    EXPECT_EQ(record.GetMediaType(), 1);
    EXPECT_EQ(record.GetQuality(), 80);
    EXPECT_EQ(record.GetType(), 1);
}

TEST_F(HPGL2Dialog, QualityIsTruncated) {
    Open();
    W<VRKDlgSlider>("QualitySlider").SetValue(99.9);
    Ok();
    EXPECT_EQ(record.GetQuality(), 99);
}

TEST_F(HPGL2Dialog, CancelLeavesTheRecordAndTellsNobody) {
    record.SetQuality(30);
    Open();
    Click(W<VRKDlgCheckButton>("EnableCutter"));
    Cancel();
    EXPECT_EQ(oks, 0);
    EXPECT_EQ(record.GetCutterState(), 1);
    EXPECT_EQ(record.GetQuality(), 30);
}

TEST_F(HPGL2Dialog, ThePenDialogWritesThePensEvenIfThisOneIsCancelled) {
    record.SetType(1);
    Open();
    Click(W<VRKDlgPushButton>("HPGLProperties"));
    VRKPrintHPGLDialog* pens = dialog->GetPenDialog();
    ASSERT_NE(pens, nullptr);
    VRKDlgApplication::ProcessEvents();
    // Pen 1 switched off in the pen dialog, then its OK.
    auto* tree =
        static_cast<QTreeWidget*>(VRKDlgQtWidget(*pens->FindChild<VRKDlgMultiList>("PenList")));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->topLevelItem(0)).center());
    Click(*pens->FindChild<VRKDlgCheckButton>("ActivationCheck"));
    ClickOk(*pens);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(dialog->GetPenDialog(), nullptr);
    Cancel();
    EXPECT_EQ(record.GetHPGLProperties()->GetPenTable().Slots()[1].enable, 0);
    EXPECT_EQ(record.GetType(), 1);
}

}  // namespace
