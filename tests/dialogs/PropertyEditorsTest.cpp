// The generators' property-editor factory, with the library of dialogs loaded.

#include <gtest/gtest.h>

#include "dialogs/VRKPrintHP1055CDialog.h"
#include "dialogs/VRKPrintHP4000Dialog.h"
#include "dialogs/VRKPrintHPGL2Dialog.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "dialogs/VRKPrintHPGLImportDialog.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKClassDictionary.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/VRKPublishToolsDlg.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "support/ScopedEnv.h"
#include "tests/dialogs/PropertyDialogEvents.h"

namespace {

TEST(PropertyEditors, TheHPGL2GeneratorEditsItsRecord) {
    auto* generator = new VRKPrintHPGL2Generator;
    auto* record = dynamic_cast<VRKPrintHPGL2Properties*>(generator->GetProperties());
    ASSERT_NE(record, nullptr);
    record->SetType(1);
    VRKDlgDialog* editor = generator->CreatePropertyEditor(nullptr);
    auto* dialog = dynamic_cast<VRKPrintHPGL2Dialog*>(editor);
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->FindChild<VRKDlgCheckButton>("HPGLRestriction")->GetState());
    delete dialog;
    VRKDlgApplication::ProcessEvents();
    generator->Release();
}

TEST(PropertyEditors, TheHPGLGeneratorEditsTheInnerGeneratorsPens) {
    auto* generator = new VRKPrintHPGLGenerator;
    auto* settings = dynamic_cast<VRKPrintHPGLProperties*>(generator->GetProperties());
    ASSERT_NE(settings, nullptr);
    settings->SetOrigin(4);
    auto* dialog = dynamic_cast<VRKPrintHPGLDialog*>(generator->CreatePropertyEditor(nullptr));
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(&dialog->GetRecord(), settings);
    EXPECT_EQ(dialog->FindChild<VRKDlgCombo>("OriginChoice")->GetSelect(), 4);
    delete dialog;
    VRKDlgApplication::ProcessEvents();
    generator->Release();
}

TEST(PropertyEditors, TheDesignJetGeneratorsEditTheirRecords) {
    VRKBaseUnknown* made = VRKClassDictionary::Instance().Create("VRKPrintHP1055CGenerator");
    auto* hp1055c = dynamic_cast<VRKPrintGenerator*>(made);
    ASSERT_NE(hp1055c, nullptr);
    VRKDlgDialog* dialog = hp1055c->CreatePropertyEditor(nullptr);
    EXPECT_NE(dynamic_cast<VRKPrintHP1055CDialog*>(dialog), nullptr);
    delete dialog;
    made->Release();
    made = VRKClassDictionary::Instance().Create("VRKPrintHP4000Generator");
    auto* hp4000 = dynamic_cast<VRKPrintGenerator*>(made);
    ASSERT_NE(hp4000, nullptr);
    dialog = hp4000->CreatePropertyEditor(nullptr);
    EXPECT_NE(dynamic_cast<VRKPrintHP4000Dialog*>(dialog), nullptr);
    delete dialog;
    VRKDlgApplication::ProcessEvents();
    made->Release();
}

TEST(PropertyEditors, FromThePublishingToolsTheHPGLGeneratorAsksForTheImport) {
    const ScopedEnv list("VRK_PRINTERS", "/nonexistent/vrk-no-printers.xml");
    auto* generator = new VRKPrintHPGLGenerator;
    auto* tools = new VRKPublishToolsDlg(nullptr, "VRKPublishToolsDlg");
    VRKDlgDialog* editor = generator->CreatePropertyEditor(tools);
    auto* import = dynamic_cast<VRKPrintHPGLImportDialog*>(editor);
    ASSERT_NE(import, nullptr);
    import->Show();
    VRKDlgApplication::ProcessEvents();
    // No HP-GL printer: the user's pens; OK answers the tools with option 1 and no name.
    EXPECT_TRUE(WidgetOf<VRKDlgRadioButton>(*import, "HPGLPens").GetState());
    ClickOk(*import);
    VRKDlgApplication::ProcessEvents();
    EXPECT_EQ(tools->GetAnswerCount(), 1);
    EXPECT_EQ(tools->GetImportOption(), 1);
    EXPECT_EQ(tools->GetImportPrinter().ToUtf8(), "");
    // Any other parent gets the pen dialog.
    auto* plain = new VRKDlgDialog(nullptr, "Plain");
    VRKDlgDialog* pens = generator->CreatePropertyEditor(plain);
    EXPECT_NE(dynamic_cast<VRKPrintHPGLDialog*>(pens), nullptr);
    delete plain;  // its child, the pen dialog, with it
    delete tools;
    VRKDlgApplication::ProcessEvents();
    generator->Release();
}

TEST(PropertyEditors, AGeneratorWithoutAnEditorGivesNone) {
    VRKPrintGenerator plain("PLAIN");
    EXPECT_EQ(plain.CreatePropertyEditor(nullptr), nullptr);
}

}  // namespace
