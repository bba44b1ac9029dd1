// OK, Cancel and the close box through real events, the deferred deletion, Run, screenshots.
#include <QCloseEvent>
#include <QImage>
#include <QTest>
#include <QTimer>

#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"
#include "tests/dialogs/DialogTestSupport.h"

namespace {

// Sets a flag when destroyed, to see when a dialog is deleted.
class WatchedDialog : public VRKDlgDialog {
  public:
    WatchedDialog(bool& deleted, int buttons)
        : VRKDlgDialog(nullptr, "Watched", buttons), m_deleted(deleted) {}
    ~WatchedDialog() override { m_deleted = true; }

  private:
    bool& m_deleted;
};

TEST_F(DialogTest, OkDeletesTheDialogLaterFromItsOwnNotification) {
    bool deleted = false;
    auto* watched =
        new WatchedDialog(deleted, VRKDlgDialog::kOkButton | VRKDlgDialog::kCancelButton);
    new VRKDlgCheckButton(*watched, "Check");
    int oks = 0;
    watched->SetOnOk([&] {
        ++oks;
        watched->RequestDelete();
        EXPECT_FALSE(deleted);  // not while its own notification runs
        watched->FindChild<VRKDlgCheckButton>("Check")->SetState(true);
    });
    watched->Show();
    QTest::mouseClick(VRKDlgQtOkButton(*watched), Qt::LeftButton);
    EXPECT_EQ(oks, 1);
    EXPECT_FALSE(deleted);
    EXPECT_TRUE(watched->IsDeleteRequested());
    EXPECT_EQ(watched->GetResult(), VRKDlgDialog::kOk);
    EXPECT_FALSE(VRKDlgQtWidget(*watched)->isVisible());
    VRKDlgApplication::ProcessEvents();
    EXPECT_TRUE(deleted);
}

TEST_F(DialogTest, OwnerMayDeleteBeforeTheDeferredDeletion) {
    bool deleted = false;
    auto* watched = new WatchedDialog(deleted, VRKDlgDialog::kOkButton);
    watched->Show();
    QTest::mouseClick(VRKDlgQtOkButton(*watched), Qt::LeftButton);  // no OnOk: it ends
    EXPECT_TRUE(watched->IsDeleteRequested());
    delete watched;
    EXPECT_TRUE(deleted);
    VRKDlgApplication::ProcessEvents();  // the pending deletion does nothing now
}

TEST_F(DialogTest, CancelAndEscapeCallOnCancel) {
    int cancels = 0;
    dialog->SetOnCancel([&] { ++cancels; });
    ShowDialog();
    QTest::mouseClick(VRKDlgQtCancelButton(*dialog), Qt::LeftButton);
    QTest::keyClick(VRKDlgQtWidget(*dialog), Qt::Key_Escape);
    EXPECT_EQ(cancels, 2);
    EXPECT_EQ(dialog->GetResult(), VRKDlgDialog::kCancel);
    EXPECT_FALSE(dialog->IsDeleteRequested());  // the notification decides
}

TEST_F(DialogTest, CloseBoxCallsOnCloseElseCancel) {
    int closes = 0, cancels = 0;
    dialog->SetOnCancel([&] { ++cancels; });
    ShowDialog();
    QWidget* window = VRKDlgQtWidget(*dialog);
    window->close();
    EXPECT_EQ(cancels, 1);
    EXPECT_EQ(dialog->GetResult(), VRKDlgDialog::kClosed);
    dialog->SetOnClose([&] { ++closes; });
    QCloseEvent event;
    QApplication::sendEvent(window, &event);
    EXPECT_EQ(closes, 1);
    EXPECT_EQ(cancels, 1);
    EXPECT_TRUE(window->isVisible());  // still open: OnClose did not end it
}

TEST_F(DialogTest, RunReturnsWhenTheDialogEnds) {
    bool deleted = false;
    auto* watched =
        new WatchedDialog(deleted, VRKDlgDialog::kOkButton | VRKDlgDialog::kCancelButton);
    QTimer::singleShot(
        0, [watched] { QTest::mouseClick(VRKDlgQtOkButton(*watched), Qt::LeftButton); });
    EXPECT_EQ(VRKDlgApplication::Run(*watched), 1);
    EXPECT_TRUE(deleted);

    deleted = false;
    watched = new WatchedDialog(deleted, VRKDlgDialog::kOkButton | VRKDlgDialog::kCancelButton);
    QTimer::singleShot(
        0, [watched] { QTest::mouseClick(VRKDlgQtCancelButton(*watched), Qt::LeftButton); });
    EXPECT_EQ(VRKDlgApplication::Run(*watched), 0);
    EXPECT_TRUE(deleted);
}

TEST_F(DialogTest, ResourcesAreNamedAfterTheDialog) {
    WriteFile("VRKTestDialog.resources", "Title = Plotter\n");
    EXPECT_EQ(dialog->GetResources().GetResourceValueFromKey("Title", "x"), "Plotter");
    EXPECT_EQ(dialog->GetResources().GetResourceValueFromKey("Other", "x"), "x");
}

TEST_F(DialogTest, ScreenshotsOfTheDialogAndOfATabPage) {
    auto* tabs = new VRKDlgTabContainer(*dialog, "Tabs");
    auto* one = new VRKDlgTabPage(*tabs, "One");
    auto* two = new VRKDlgTabPage(*tabs, "Two");
    new VRKDlgLabel(*one, "A");
    auto* label = new VRKDlgLabel(*two, "B");
    label->SetTitle("Second page");
    std::string whole = (folder / "whole.png").string();
    std::string page = (folder / "page.png").string();
    ASSERT_TRUE(dialog->SaveScreenshot(whole));
    ASSERT_TRUE(two->SaveScreenshot(page));
    EXPECT_EQ(tabs->GetCurrentPage(), 1);
    QImage wholeImage(QString::fromStdString(whole));
    QImage pageImage(QString::fromStdString(page));
    EXPECT_EQ(wholeImage.size(), VRKDlgQtWidget(*dialog)->size());
    EXPECT_EQ(pageImage.size(), VRKDlgQtWidget(*two)->size());
    EXPECT_GT(pageImage.width(), 0);
    EXPECT_FALSE(dialog->SaveScreenshot((folder / "no-such-folder" / "x.png").string()));
}

TEST_F(DialogTest, ButtonsComeLastInTheKeyboardOrder) {
    auto* check = new VRKDlgCheckButton(*dialog, "Check");
    auto* second = new VRKDlgCheckButton(*dialog, "Second");
    ShowDialog();
    QWidget* window = VRKDlgQtWidget(*dialog);
    QApplication::setActiveWindow(window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    VRKDlgQtWidget(*check)->setFocus();
    std::vector<QWidget*> order;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.push_back(QApplication::focusWidget());
    }
    EXPECT_EQ(order,
              (std::vector<QWidget*>{VRKDlgQtWidget(*second), VRKDlgQtOkButton(*dialog),
                                     VRKDlgQtCancelButton(*dialog), VRKDlgQtWidget(*check)}));
}

TEST_F(DialogTest, ChildDialogIsOwnedByItsParentAndEndsOnItsOwn) {
    bool deleted = false;
    auto* parent = new WatchedDialog(deleted, VRKDlgDialog::kOkButton);
    auto* child = new VRKDlgDialog(parent, "Child", VRKDlgDialog::kCancelButton);
    EXPECT_EQ(child->GetParent(), parent);
    EXPECT_EQ(parent->FindChild<VRKDlgDialog>("Child"), child);
    EXPECT_EQ(VRKDlgQtOkButton(*child), nullptr);
    child->Show();
    QTest::mouseClick(VRKDlgQtCancelButton(*child), Qt::LeftButton);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(parent->GetChildCount(), 0);
    new VRKDlgDialog(parent, "Second");
    delete parent;  // takes its child dialog with it
    EXPECT_TRUE(deleted);
}

TEST_F(DialogTest, ShowAndHideFollowTheVisibilityFlag) {
    EXPECT_FALSE(dialog->IsVisible());
    dialog->Show();
    EXPECT_TRUE(dialog->IsVisible());
    EXPECT_TRUE(VRKDlgQtWidget(*dialog)->isVisible());
    dialog->Hide();
    EXPECT_FALSE(dialog->IsVisible());
    EXPECT_FALSE(VRKDlgQtWidget(*dialog)->isVisible());
    dialog->RequestDelete();
    dialog->Show();  // an ended dialog stays hidden
    EXPECT_FALSE(VRKDlgQtWidget(*dialog)->isVisible());
    dialog = nullptr;  // deletes itself
    VRKDlgApplication::ProcessEvents();
}

}  // namespace
