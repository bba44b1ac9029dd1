// The pen dialog's texts come from its resource file, the literals in the code only standing in
// for a file or a key that is missing.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "dialogs/VRKPrintHPGLDialog.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgMultiList.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

class ResourceFolder {
  public:
    ResourceFolder() {
        path = std::filesystem::temp_directory_path() /
               ("vrk-pen-resources-" + std::to_string(getpid()));
        std::filesystem::create_directories(path);
        setenv("VRK_RESOURCES_DIR", path.c_str(), 1);
    }
    ~ResourceFolder() {
        unsetenv("VRK_RESOURCES_DIR");
        std::filesystem::remove_all(path);
    }
    std::filesystem::path path;
};

TEST(PenDialogTexts, AResourceValueWinsOverTheFallback) {
    ResourceFolder folder;
    std::ofstream(folder.path / "VRKPrintHPGLDialog.resources")
        << "Color2 = Rouge\nCol2 = Largeur\nWidthLabel = \"  Epaisseur  \"\n";
    VRKPrintHPGLProperties record;
    auto* dialog = new VRKPrintHPGLDialog(nullptr, &record);
    EXPECT_EQ(dialog->FindChild<VRKDlgCombo>("ColorChoice")->GetLine(1), "Rouge");
    // Keys the file does not name keep the literal of the code.
    EXPECT_EQ(dialog->FindChild<VRKDlgCombo>("ColorChoice")->GetLine(0), "Black");
    EXPECT_EQ(dialog->FindChild<VRKDlgLabel>("WidthLabel")->GetTitle(), "  Epaisseur  ");
    EXPECT_EQ(dialog->FindChild<VRKDlgLabel>("ColorLabel")->GetTitle(), "Color");
    delete dialog;
    VRKDlgApplication::ProcessEvents();
}

TEST(PenDialogTexts, WithoutTheFileEveryTextIsTheFallback) {
    ResourceFolder folder;
    VRKPrintHPGLProperties record;
    auto* dialog = new VRKPrintHPGLDialog(nullptr, &record);
    EXPECT_EQ(dialog->FindChild<VRKDlgCombo>("OriginChoice")->GetLine(4), "Upper Right Corner");
    EXPECT_EQ(dialog->FindChild<VRKDlgCombo>("ColorChoice")->GetLine(6), "Cyan");
    delete dialog;
    VRKDlgApplication::ProcessEvents();
}

}  // namespace
