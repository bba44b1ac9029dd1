#include <gtest/gtest.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "host/core/VRKDriverLoader.h"
#include "support/ScopedEnv.h"

namespace {

std::string folderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/'));
}

// The folder of this test program, from the kernel.
std::string programFolder() {
    char path[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
    return n > 0 ? folderOf(std::string(path, static_cast<std::size_t>(n))) : std::string();
}

// The folder of the host core library as the process has it mapped, read from the kernel's list
// of mappings rather than asked of the dynamic linker.
std::string mappedFolderOf(const std::string& file) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        const std::size_t slash = line.find('/');
        if (slash != std::string::npos && line.size() >= file.size() + 1 &&
            line.compare(line.size() - file.size() - 1, std::string::npos, "/" + file) == 0) {
            char resolved[PATH_MAX];
            if (::realpath(line.substr(slash).c_str(), resolved) != nullptr) {
                return folderOf(resolved);
            }
        }
    }
    return {};
}

}  // namespace

TEST(DriverLoader, LoaderFolderIsTheFolderOfTheHostCoreLibrary) {
    const std::string folder = mappedFolderOf("libVRKHostCore.so");
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(VRKDriverLoader::LoaderFolder(), folder);
}

TEST(DriverLoader, SearchesThePathThenBesideTheProgramThenBesideTheHostLibraries) {
    ScopedEnv path("VRK_DRIVER_PATH", std::string("/opt/a::/opt/b"));
    const std::string core = mappedFolderOf("libVRKHostCore.so");
    const std::vector<std::string> expected = {
        "/opt/a/libVRKDemo.so",  "/opt/b/libVRKDemo.so", programFolder() + "/../lib/libVRKDemo.so",
        core + "/libVRKDemo.so", "libVRKDemo.so",
    };
    EXPECT_EQ(VRKDriverLoader::SearchPath("VRKDemo"), expected);
}

TEST(DriverLoader, WithoutThePathStartsBesideTheProgram) {
    ScopedEnv path("VRK_DRIVER_PATH", std::nullopt);
    const std::vector<std::string> expected = {
        programFolder() + "/../lib/libVRKDemo.so",
        mappedFolderOf("libVRKHostCore.so") + "/libVRKDemo.so",
        "libVRKDemo.so",
    };
    EXPECT_EQ(VRKDriverLoader::SearchPath("VRKDemo"), expected);
}

TEST(DriverLoader, AMissingDriverIsReportedByTheFirstFailure) {
    ScopedEnv path("VRK_DRIVER_PATH", std::string("/nonexistent-folder"));
    std::string error;
    EXPECT_FALSE(VRKDriverLoader::Load("VRKNoSuchDriver", error));
    EXPECT_EQ(error,
              "/nonexistent-folder/libVRKNoSuchDriver.so: cannot open shared object file: No such "
              "file or directory");
}
