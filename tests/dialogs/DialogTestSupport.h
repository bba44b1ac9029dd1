#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/VRKDlgDialog.h"

// A fresh resource folder per test (VRK_RESOURCES_DIR), and a dialog shown on the offscreen
// platform, deleted at the end of the test unless it ended itself.
class DialogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path() /
                 ("vrkdlg-" + std::to_string(getpid()) + "-" +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(folder);
        setenv("VRK_RESOURCES_DIR", folder.c_str(), 1);
        dialog = new VRKDlgDialog(nullptr, "VRKTestDialog");
    }
    void TearDown() override {
        delete dialog;
        VRKDlgApplication::ProcessEvents();
        std::filesystem::remove_all(folder);
        unsetenv("VRK_RESOURCES_DIR");
    }
    void WriteFile(const std::string& name, const std::string& bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    void ShowDialog() {
        dialog->Show();
        VRKDlgApplication::ProcessEvents();
    }

    std::filesystem::path folder;
    VRKDlgDialog* dialog = nullptr;
};
