#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>
#include <string>
#include <vector>

#include "dialogs/VRKPrintHPGLImportDialog.h"
#include "dialogs/VRKPrintHPGLImportNotification.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/qt/VRKDlgQtAccess.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "support/TempFolder.h"

// The printer list of the import dialog's tests: HP-GL printers with and without pens in their
// settings among printers of other languages (one of them with HP-GL pens in its settings too).
inline const char* const kMixedPrinters =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Printers>\n"
    "<Printer name=\"dj\" language=\"HP4000GL2\" description=\"DesignJet roll\" "
    "destination=\"lp:dj\"/>\n"
    "<Printer name=\"a3\" language=\"HPGL\" description=\"A3 plotter\" destination=\"/dev/null\">\n"
    "  <HPGLProperties origin=\"Center\"><pens>"
    "<pen number=\"1\" red=\"10\" green=\"20\" blue=\"30\" width=\"0.5\" enable=\"NO\"/>"
    "</pens></HPGLProperties>\n"
    "</Printer>\n"
    "<Printer name=\"wide\" language=\"HPGL2\" description=\"Wide HP-GL/2\" "
    "destination=\"/dev/null\">\n"
    "  <HPGLProperties><pens>"
    "<pen number=\"3\" red=\"7\" green=\"7\" blue=\"7\" width=\"2\" enable=\"YES\"/>"
    "</pens></HPGLProperties>\n"
    "</Printer>\n"
    "<Printer name=\"a0\" language=\"HPGL\" description=\"A0 plotter\" destination=\"/dev/null\">\n"
    "  <HPGLProperties><pens>"
    "<pen number=\"2\" red=\"40\" green=\"50\" blue=\"60\" width=\"1.25\" enable=\"YES\"/>"
    "<pen number=\"7\" red=\"1\" green=\"2\" blue=\"3\" width=\"0.75\" enable=\"NO\"/>"
    "</pens></HPGLProperties>\n"
    "</Printer>\n"
    "<Printer name=\"plain\" language=\"HPGL\" description=\"Plain plotter\" "
    "destination=\"/dev/null\"/>\n"
    "</Printers>\n";

// The printers without an HP-GL one.
inline const char* const kOtherPrinters =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Printers>\n"
    "<Printer name=\"dj\" language=\"HP4000GL2\" description=\"DesignJet roll\" "
    "destination=\"lp:dj\"/>\n"
    "<Printer name=\"wide\" language=\"HPGL2\" description=\"Wide HP-GL/2\" "
    "destination=\"/dev/null\"/>\n"
    "</Printers>\n";

// An import dialog over a printer list of the test's (VRK_PRINTERS in a temporary folder), made
// on an owner dialog of the test's and shown. The answers and the end are recorded; the
// process-wide choices start from their first state in every test.
class ImportDialog : public ::testing::Test {
  protected:
    void SetUp() override {
        setenv("VRK_PRINTERS", folder.File("printers.xml").c_str(), 1);
        VRKPrintHPGLImportDialog::SetRememberedPrinter(0);
        const VRKPrintHPGLProperties defaults;
        VRKPrintHPGLProperties& shared = VRKPrintHPGLImportDialog::SharedPens();
        shared.SetPenTable(defaults.GetPenTable());
        shared.SetOrigin(defaults.GetOrigin());
        shared.SetRelativeMovePen(defaults.GetRelativeMovePen());
        shared.SetPrintThickness(defaults.GetPrintThickness());
        owner = new VRKDlgDialog(nullptr, "VRKTestOwner");
    }
    void TearDown() override {
        delete dialog;
        VRKDlgApplication::ProcessEvents();
        delete owner;
        VRKDlgApplication::ProcessEvents();
        unsetenv("VRK_PRINTERS");
    }
    void WritePrinters(const std::string& text) { folder.Write("printers.xml", text); }
    void Open(int option, VRKPrintHPGLProperties* pens) {
        dialog = new VRKPrintHPGLImportDialog(owner, pens, option);
        dialog->SetOnNotify(
            [this](const VRKPrintHPGLImportNotification& answer) { answers.push_back(answer); });
        // A dialog that ended deletes itself: the test lets go of it then.
        dialog->SetOnEnd([this](bool ok) {
            ends.push_back(ok);
            dialog = nullptr;
        });
        dialog->Show();
        VRKDlgApplication::ProcessEvents();
    }
    template <class T>
    T& W(const std::string& key) {
        T* widget = dialog->FindChild<T>(key);
        EXPECT_NE(widget, nullptr) << key;
        return *widget;
    }
    // A click at the left end of a button, on its box: a button stretched over its cell takes
    // clicks only on its box and text.
    void Click(const VRKDlgObject& widget) {
        QWidget* w = VRKDlgQtWidget(widget);
        QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(8, w->height() / 2));
    }
    void ClickOk(VRKDlgDialog& d) {
        QTest::mouseClick(VRKDlgQtOkButton(d), Qt::LeftButton);
        VRKDlgApplication::ProcessEvents();
    }
    void ClickCancel(VRKDlgDialog& d) {
        QTest::mouseClick(VRKDlgQtCancelButton(d), Qt::LeftButton);
        VRKDlgApplication::ProcessEvents();
    }
    // Chooses a printer from the list's popup with the mouse.
    void ChoosePrinter(int line) {
        auto* box = static_cast<QComboBox*>(VRKDlgQtWidget(W<VRKDlgCombo>("HPGLListPrinters")));
        box->showPopup();
        QAbstractItemView* view = box->view();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view->window()));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(line, 0)).center());
        VRKDlgApplication::ProcessEvents();
    }
    // The option and printer name of every answer: "1:" or "0:A3 plotter".
    std::vector<std::string> Answers() const {
        std::vector<std::string> out;
        for (const auto& answer : answers) {
            out.push_back(std::to_string(answer.GetOption()) + ":" +
                          answer.GetPrinterName().ToUtf8());
        }
        return out;
    }

    TempFolder folder{"import-dialog"};
    VRKDlgDialog* owner = nullptr;
    VRKPrintHPGLImportDialog* dialog = nullptr;
    std::vector<VRKPrintHPGLImportNotification> answers;
    std::vector<bool> ends;
};
