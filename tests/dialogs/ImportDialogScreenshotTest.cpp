// A picture of the import dialog for the documentation: written as VRKPrintHPGLImportDialog.png
// into the folder VRK_SCREENSHOT_DIR names; without that variable nothing is written.

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "dialogs/ImportDialogFixture.h"

namespace {

class ImportDialogScreenshots : public ImportDialog {};

TEST_F(ImportDialogScreenshots, ImportDialog) {
    const char* where = std::getenv("VRK_SCREENSHOT_DIR");
    if (where == nullptr || *where == '\0') {
        GTEST_SKIP() << "VRK_SCREENSHOT_DIR is not set";
    }
    WritePrinters(kMixedPrinters);
    Open(0, nullptr);
    const std::string path = std::string(where) + "/VRKPrintHPGLImportDialog.png";
    ASSERT_TRUE(dialog->SaveScreenshot(path)) << path;
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    ASSERT_GT(bytes.size(), 8u);
    EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1a\n");
}

}  // namespace
