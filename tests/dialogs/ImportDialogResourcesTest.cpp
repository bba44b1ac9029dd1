// The import dialog's texts come from its resource file, the literals in the code only standing
// in for a file or a key that is missing.

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "dialogs/ImportDialogFixture.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/VRKDlgResources.h"

namespace {

class ImportTexts : public ImportDialog {
  protected:
    void UseResources() { setenv("VRK_RESOURCES_DIR", texts.Path().c_str(), 1); }
    void TearDown() override {
        ImportDialog::TearDown();
        unsetenv("VRK_RESOURCES_DIR");
    }
    TempFolder texts{"import-texts"};
};

TEST_F(ImportTexts, AResourceValueWinsOverTheFallback) {
    texts.Write("VRKPrintHPGLImportDialog.resources",
                "HPGLPens = Stylos\nPrintProperties = \"  Import  \"\n");
    UseResources();
    Open(0, nullptr);
    EXPECT_EQ(dialog->GetTitle(), "  Import  ");
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPens").GetTitle(), "Stylos");
    // Keys the file does not name keep the literal of the code.
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPrinters").GetTitle(), "Pens of a printer");
    EXPECT_EQ(W<VRKDlgPushButton>("HPGLPensButton").GetTitle(), "Pens...");
}

TEST_F(ImportTexts, WithoutTheFileEveryTextIsTheFallback) {
    UseResources();
    Open(0, nullptr);
    EXPECT_EQ(dialog->GetTitle(), "HP-GL Import");
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPrinters").GetTitle(), "Pens of a printer");
    EXPECT_EQ(W<VRKDlgRadioButton>("HPGLPens").GetTitle(), "Pens defined here");
    EXPECT_EQ(W<VRKDlgPushButton>("HPGLPensButton").GetTitle(), "Pens...");
}

TEST(ImportDialogResourceFile, NamesEveryKeyWithoutAFault) {
    // The file copied beside the program.
    const VRKDlgResources resources("VRKPrintHPGLImportDialog");
    ASSERT_TRUE(resources.IsLoaded()) << resources.GetPath();
    EXPECT_TRUE(resources.GetErrors().empty());
    EXPECT_EQ(resources.GetResourceValueFromKey("PrintProperties", ""), "HP-GL Import");
    EXPECT_EQ(resources.GetResourceValueFromKey("HPGLPrinters", ""), "Pens of a printer");
    EXPECT_EQ(resources.GetResourceValueFromKey("HPGLPens", ""), "Pens defined here");
    EXPECT_EQ(resources.GetResourceValueFromKey("HPGLPensButton", ""), "Pens...");
}

}  // namespace
