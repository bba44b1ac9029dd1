#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "host/core/VRKEnvironment.h"

// A fresh folder in the system's temporary directory, removed with everything in it when the
// object goes.
class TempFolder {
  public:
    explicit TempFolder(const std::string& tag = "test") {
        std::string pattern = VRKEnvironment::TemporaryDirectory() + "vrk-" + tag + ".XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot create a temporary folder");
        }
        path_ = pattern;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

    // Writes `bytes` to the file `name` in the folder and returns its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        const std::string path = File(name);
        std::ofstream out(path, std::ios::binary);
        out << bytes;
        return path;
    }

    // Every entry of the folder, by name, sorted.
    std::string Listing() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.insert(entry.path().filename().string());
        }
        std::string out;
        for (const std::string& name : names) {
            out += name + "\n";
        }
        return out;
    }

  private:
    std::string path_;
};

// The whole content of a file; empty when it cannot be read.
inline std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}
