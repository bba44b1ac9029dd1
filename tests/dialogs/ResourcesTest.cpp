#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/dialogs/VRKDlgResources.h"

namespace {

class ResourcesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder =
            std::filesystem::temp_directory_path() / ("vrkdlg-res-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        setenv("VRK_RESOURCES_DIR", folder.c_str(), 1);
    }
    void TearDown() override {
        std::filesystem::remove_all(folder);
        unsetenv("VRK_RESOURCES_DIR");
    }
    void Write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder / (name + ".resources"), std::ios::binary) << bytes;
    }
    std::filesystem::path folder;
};

TEST_F(ResourcesTest, ValueWinsOverFallback) {
    Write("VRKPrintHPGLDialog", "Title = Pen plotter settings\nOrigin=Lower left\n");
    VRKDlgResources resources("VRKPrintHPGLDialog");
    EXPECT_TRUE(resources.IsLoaded());
    EXPECT_EQ(resources.GetPath(), (folder / "VRKPrintHPGLDialog.resources").string());
    EXPECT_EQ(resources.GetResourceValueFromKey("Title", "x"), "Pen plotter settings");
    EXPECT_EQ(resources.GetResourceValueFromKey("Origin", "x"), "Lower left");
    EXPECT_TRUE(resources.GetErrors().empty());
}

TEST_F(ResourcesTest, MissingKeyGivesFallback) {
    Write("D", "Title = A\n");
    VRKDlgResources resources("D");
    EXPECT_EQ(resources.GetResourceValueFromKey("Other", "fallback"), "fallback");
    EXPECT_FALSE(resources.HasKey("Other"));
}

TEST_F(ResourcesTest, MissingFileGivesFallbackAndSaysSo) {
    VRKDlgResources resources("NoSuchDialog");
    EXPECT_FALSE(resources.IsLoaded());
    EXPECT_EQ(resources.GetResourceValueFromKey("Title", "fallback"), "fallback");
    ASSERT_EQ(resources.GetErrors().size(), 1u);
    EXPECT_EQ(resources.GetErrors()[0],
              (folder / "NoSuchDialog.resources").string() + ": cannot be read");
}

TEST_F(ResourcesTest, CommentsBlankLinesEmptyAndQuotedTexts) {
    Write("D",
          "\xEF\xBB\xBF# texts of the dialog\n"
          "\n"
          "   \t\n"
          "  # indented comment = not a key\n"
          "Empty =\n"
          "Quoted = \"  Pen  \"\n"
          "Lines = one\\ntwo \\\\ three\r\n"
          "Equals = a = b\n"
          "Unicode = Stift \xC3\xBC\n");
    VRKDlgResources resources("D");
    EXPECT_TRUE(resources.GetErrors().empty());
    EXPECT_FALSE(resources.HasKey("# indented comment"));
    EXPECT_TRUE(resources.HasKey("Empty"));
    EXPECT_EQ(resources.GetResourceValueFromKey("Empty", "fallback"), "");
    EXPECT_EQ(resources.GetResourceValueFromKey("Quoted", ""), "  Pen  ");
    EXPECT_EQ(resources.GetResourceValueFromKey("Lines", ""), "one\ntwo \\ three");
    EXPECT_EQ(resources.GetResourceValueFromKey("Equals", ""), "a = b");
    EXPECT_EQ(resources.GetResourceValueFromKey("Unicode", ""), "Stift \xC3\xBC");
}

TEST_F(ResourcesTest, BadLinesAreReportedAndFirstTextStays) {
    Write("D", "Title = First\nno equals sign\n = no key\nTitle = Second\n");
    VRKDlgResources resources("D");
    std::string path = (folder / "D.resources").string();
    ASSERT_EQ(resources.GetErrors().size(), 3u);
    EXPECT_EQ(resources.GetErrors()[0], path + ":2: no '=' in the line");
    EXPECT_EQ(resources.GetErrors()[1], path + ":3: no key before '='");
    EXPECT_EQ(resources.GetErrors()[2], path + ":4: key 'Title' given again (first on line 1)");
    EXPECT_EQ(resources.GetResourceValueFromKey("Title", ""), "First");
}

TEST_F(ResourcesTest, FolderFollowsTheEnvironmentThenTheProgram) {
    EXPECT_EQ(VRKDlgResources::Folder(), folder.string());
    EXPECT_EQ(VRKDlgResources::PicturePath("HPMonoroll"), (folder / "HPMonoroll.png").string());
    unsetenv("VRK_RESOURCES_DIR");
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    std::string expected = std::filesystem::is_directory(program / "resources")
                               ? (program / "resources").string()
                               : (program / "../share/vrkprtdriverhpgl2/resources").string();
    EXPECT_EQ(VRKDlgResources::Folder(), expected);
}

}  // namespace
