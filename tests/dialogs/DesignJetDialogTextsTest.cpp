// The texts of the DesignJet dialogs and their about box: the resource files shipped beside the
// programs hold every key with the code's own literal, a value in a resource file wins over the
// literal, and the about box shows its badges and texts. With VRK_SCREENSHOT_DIR set, the last
// test also leaves a picture of each dialog and each page there.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "dialogs/VRKPrintHP1055CDialog.h"
#include "dialogs/VRKPrintHP1055CDialogAbout.h"
#include "dialogs/VRKPrintHP4000Dialog.h"
#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgResources.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"

namespace {

namespace fs = std::filesystem;

// Every text a dialog shows: "key: title" per widget, and "key[i]: line" per combo line.
void CollectTexts(const VRKDlgObject& object, std::vector<std::string>& texts) {
    texts.push_back(object.GetKey() + ": " + object.GetTitle());
    if (auto* combo = dynamic_cast<const VRKDlgCombo*>(&object)) {
        for (int i = 0; i < combo->GetLineCount(); ++i) {
            texts.push_back(object.GetKey() + "[" + std::to_string(i) + "]: " + combo->GetLine(i));
        }
    }
    for (int i = 0; i < object.GetChildCount(); ++i) {
        CollectTexts(*object.GetChild(i), texts);
    }
}

// The texts of a dialog made by `make`, read with VRK_RESOURCES_DIR set to `folder` (or unset
// for an empty folder name).
std::vector<std::string> TextsOf(const std::function<VRKDlgDialog*()>& make,
                                 const std::string& folder) {
    if (folder.empty()) {
        unsetenv("VRK_RESOURCES_DIR");
    } else {
        setenv("VRK_RESOURCES_DIR", folder.c_str(), 1);
    }
    VRKDlgDialog* dialog = make();
    std::vector<std::string> texts;
    CollectTexts(*dialog, texts);
    delete dialog;
    VRKDlgApplication::ProcessEvents();
    unsetenv("VRK_RESOURCES_DIR");
    return texts;
}

class DesignJetTexts : public ::testing::Test {
  protected:
    void SetUp() override {
        unsetenv("VRK_RESOURCES_DIR");
        folder = fs::temp_directory_path() / ("vrk-dj-resources-" + std::to_string(getpid()));
        fs::create_directories(folder);
    }
    void TearDown() override {
        unsetenv("VRK_RESOURCES_DIR");
        fs::remove_all(folder);
    }
    fs::path folder;
    VRKPrintHP1055CProperties record1000;
    VRKPrintHP4000Properties record4000;
};

TEST_F(DesignJetTexts, ShippedFilesReadWithoutFaults) {
    for (const char* name :
         {"VRKPrintHP1055CDialog", "VRKPrintHP4000Dialog", "VRKPrintHP1055CDialogAbout"}) {
        VRKDlgResources texts(name);
        EXPECT_TRUE(texts.IsLoaded()) << name;
        EXPECT_EQ(texts.GetErrors(), std::vector<std::string>{}) << name;
    }
    VRKDlgResources dj1000("VRKPrintHP1055CDialog");
    for (const char* key : {"MediaList", "SourceList", "QualityCombo"}) {
        EXPECT_FALSE(dj1000.HasKey(key)) << key;
    }
    EXPECT_EQ(dj1000.GetResourceValueFromKey("Media3", ""), "Transparency film");
    EXPECT_EQ(dj1000.GetResourceValueFromKey("Source5", ""), "Roll 3");
    EXPECT_EQ(dj1000.GetResourceValueFromKey("BlankLabel1", ""), "  ");
    VRKDlgResources dj4000("VRKPrintHP4000Dialog");
    EXPECT_EQ(dj4000.GetResourceValueFromKey("Resolution1200", ""), "1200");
    EXPECT_EQ(dj4000.GetResourceValueFromKey("High", ""), "High");
}

TEST_F(DesignJetTexts, ShippedFilesHoldTheLiteralsOfTheCode) {
    // Without any resource file every text is the code's literal; the shipped files say the same.
    const std::vector<std::function<VRKDlgDialog*()>> makers = {
        [this] { return new VRKPrintHP1055CDialog(nullptr, &record1000); },
        [this] { return new VRKPrintHP4000Dialog(nullptr, &record4000); },
        [] { return new VRKPrintHP1055CDialogAbout(nullptr); },
    };
    for (const auto& make : makers) {
        const std::vector<std::string> literals = TextsOf(make, folder.string());
        const std::vector<std::string> shipped = TextsOf(make, "");
        EXPECT_EQ(shipped, literals);
        EXPECT_GE(literals.size(), 10u);
    }
    // Switching the multi-roll lines in reads them from the file too.
    record1000.SetMultiRollFeeder(1);
    EXPECT_EQ(TextsOf(makers[0], ""), TextsOf(makers[0], folder.string()));
}

TEST_F(DesignJetTexts, AResourceValueWinsOverTheLiteral) {
    std::ofstream(folder / "VRKPrintHP1055CDialog.resources")
        << "Media2 = Papier\nSource2 = Feuille a feuille\nBest = Optimale\n"
           "MultiRollFeeder = \"  Rouleaux  \"\nPrintProperties = Traceur\n";
    std::ofstream(folder / "VRKPrintHP4000Dialog.resources") << "Resolution600 = 600 ppp\n";
    std::ofstream(folder / "VRKPrintHP1055CDialogAbout.resources")
        << "InformationsLabel = Pilote\n";
    setenv("VRK_RESOURCES_DIR", folder.c_str(), 1);
    record1000.SetMultiRollFeeder(0);
    auto* dj1000 = new VRKPrintHP1055CDialog(nullptr, &record1000);
    EXPECT_EQ(dj1000->GetTitle(), "Traceur");
    EXPECT_EQ(dj1000->FindChild<VRKDlgCombo>("MediaList")->GetLine(1), "Papier");
    EXPECT_EQ(dj1000->FindChild<VRKDlgCombo>("MediaList")->GetLine(2), "Transparency film");
    EXPECT_EQ(dj1000->FindChild<VRKDlgCombo>("SourceList")->GetLine(1), "Feuille a feuille");
    EXPECT_EQ(dj1000->FindChild<VRKDlgCombo>("QualityCombo")->GetLine(2), "Optimale");
    EXPECT_EQ(dj1000->FindChild<VRKDlgCheckButton>("MultiRollFeeder")->GetTitle(), "  Rouleaux  ");
    auto* dj4000 = new VRKPrintHP4000Dialog(nullptr, &record4000);
    EXPECT_EQ(dj4000->FindChild<VRKDlgCombo>("ResolutionCombo")->GetLine(1), "600 ppp");
    EXPECT_EQ(dj4000->FindChild<VRKDlgCombo>("MediaList")->GetLine(1), "Paper");
    auto* about = new VRKPrintHP1055CDialogAbout(nullptr);
    EXPECT_EQ(about->FindChild<VRKDlgLabel>("InformationsLabel")->GetTitle(), "Pilote");
    delete about;
    delete dj4000;
    delete dj1000;
    VRKDlgApplication::ProcessEvents();
}

TEST_F(DesignJetTexts, AboutBox) {
    auto* about = new VRKPrintHP1055CDialogAbout(nullptr);
    EXPECT_EQ(about->GetKey(), "HPDesJet1000SeriesAbout");
    EXPECT_EQ(about->GetTitle(), "About the driver");
    auto* frame = about->FindChild<VRKDlgFrame>("AboutFrame");
    ASSERT_NE(frame, nullptr);
    const std::vector<std::pair<const char*, const char*>> pictures = {{"HPlogoLabel", "HP_logo"},
                                                                       {"ZKlogoLabel", "ZKW_logo"}};
    for (const auto& [key, picture] : pictures) {
        auto* label = about->FindChild<VRKDlgLabel>(key);
        ASSERT_NE(label, nullptr) << key;
        EXPECT_EQ(label->GetParent(), frame);
        EXPECT_EQ(label->GetPicture(), picture);
        EXPECT_TRUE(label->HasPictureLoaded()) << key;
    }
    const std::vector<std::pair<const char*, const char*>> texts = {
        {"InformationsLabel",
         "VRKPrtDriverHPGL2: a print driver for large-format printers and pen plotters"},
        {"HPcopyrightLabel", "Copyright the VRKPrtDriverHPGL2 developers"},
        {"ZKcopyrightLabel", "Copyright of the dialogs: the VRKPrtDriverHPGL2 developers"},
        {"BlankLabel1", "  "},
        {"BlankLabel2", "  "},
        {"BlankLabel3", "  "}};
    for (const auto& [key, text] : texts) {
        auto* label = about->FindChild<VRKDlgLabel>(key);
        ASSERT_NE(label, nullptr) << key;
        EXPECT_EQ(label->GetParent(), frame);
        EXPECT_EQ(label->GetTitle(), text) << key;
    }
    EXPECT_EQ(frame->GetChildCount(), 8);
    delete about;
    VRKDlgApplication::ProcessEvents();
}

bool IsPng(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    char signature[8] = {};
    file.read(signature, 8);
    return file && std::string(signature, 8) == "\x89PNG\r\n\x1a\n";
}

TEST_F(DesignJetTexts, Screenshots) {
    // Into VRK_SCREENSHOT_DIR when set (the pictures in docs/dialogs/), else into a folder of the
    // test's own, removed after.
    const char* wanted = std::getenv("VRK_SCREENSHOT_DIR");
    const fs::path target = wanted != nullptr && *wanted != '\0' ? fs::path(wanted) : folder;
    fs::create_directories(target);
    std::vector<fs::path> written;
    const auto savePages = [&](VRKDlgDialog& dialog, const std::string& name) {
        dialog.Show();
        VRKDlgApplication::ProcessEvents();
        auto* tabs = dialog.FindChild<VRKDlgTabContainer>("TabContainer");
        ASSERT_NE(tabs, nullptr);
        for (int page = 0; page < tabs->GetPageCount(); ++page) {
            tabs->SetCurrentPage(page);
            VRKDlgApplication::ProcessEvents();
            const fs::path path = target / (name + "-" + tabs->GetChild(page)->GetKey() + ".png");
            EXPECT_TRUE(dialog.SaveScreenshot(path.string())) << path;
            written.push_back(path);
        }
    };
    auto* dj1000 = new VRKPrintHP1055CDialog(nullptr, &record1000);
    savePages(*dj1000, "VRKPrintHP1055CDialog");
    delete dj1000;
    auto* dj4000 = new VRKPrintHP4000Dialog(nullptr, &record4000);
    savePages(*dj4000, "VRKPrintHP4000Dialog");
    delete dj4000;
    auto* about = new VRKPrintHP1055CDialogAbout(nullptr);
    about->Show();
    VRKDlgApplication::ProcessEvents();
    written.push_back(target / "VRKPrintHP1055CDialogAbout.png");
    EXPECT_TRUE(about->SaveScreenshot(written.back().string()));
    delete about;
    VRKDlgApplication::ProcessEvents();
    ASSERT_EQ(written.size(), 5u);
    for (const fs::path& path : written) {
        EXPECT_TRUE(IsPng(path)) << path;
    }
}

}  // namespace
