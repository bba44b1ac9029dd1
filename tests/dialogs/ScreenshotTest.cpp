// Pictures of the dialogs for the documentation: with VRK_SCREENSHOT_DIR set, every dialog and
// every tab page is rendered to FOLDER/DIALOG[-PAGE].png (docs/dialogs/ keeps them). Without it
// the dialogs are still rendered, into a scratch folder, and each picture must be a PNG file.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "dialogs/VRKPrintHPGL2Dialog.h"
#include "dialogs/VRKPrintHPGLColorDialog.h"
#include "dialogs/VRKPrintHPGLDialog.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

std::filesystem::path folder() {
    if (const char* dir = std::getenv("VRK_SCREENSHOT_DIR")) {
        return dir;
    }
    return std::filesystem::temp_directory_path() / ("vrk-shots-" + std::to_string(getpid()));
}

// Shows the dialog, saves it as NAME.png, checks the file is a PNG picture.
void Save(VRKDlgDialog& dialog, const std::string& name) {
    std::filesystem::create_directories(folder());
    dialog.Show();
    VRKDlgApplication::ProcessEvents();
    const std::filesystem::path file = folder() / (name + ".png");
    ASSERT_TRUE(dialog.SaveScreenshot(file.string())) << file;
    std::ifstream in(file, std::ios::binary);
    char signature[8] = {};
    in.read(signature, sizeof signature);
    EXPECT_EQ(std::string(signature, 8), "\x89PNG\r\n\x1a\n") << file;
}

class Screenshots : public ::testing::Test {
  protected:
    void TearDown() override {
        if (std::getenv("VRK_SCREENSHOT_DIR") == nullptr) {
            std::filesystem::remove_all(folder());
        }
    }
};

TEST_F(Screenshots, PenDialogPages) {
    VRKPrintHPGLProperties record;
    auto* dialog = new VRKPrintHPGLDialog(nullptr, &record);
    dialog->FindChild<VRKDlgMultiList>("PenList")->SetSelect({1});
    Save(*dialog, "VRKPrintHPGLDialog-Pen");
    dialog->FindChild<VRKDlgTabContainer>("TabContainer")->SetCurrentPage(1);
    Save(*dialog, "VRKPrintHPGLDialog-Printer");
    delete dialog;
    VRKDlgApplication::ProcessEvents();
}

TEST_F(Screenshots, ColourDialog) {
    float red = 200, green = 120, blue = 40;
    auto* dialog = new VRKPrintHPGLColorDialog(nullptr, &red, &green, &blue);
    Save(*dialog, "VRKPrintHPGLColorDialog");
    delete dialog;
    VRKDlgApplication::ProcessEvents();
}

TEST_F(Screenshots, HPGL2Dialog) {
    VRKPrintHPGL2Properties record;
    record.SetQuality(50);
    auto* dialog = new VRKPrintHPGL2Dialog(nullptr, &record);
    Save(*dialog, "VRKPrintHPGL2Dialog");
    delete dialog;
    VRKDlgApplication::ProcessEvents();
}

}  // namespace
