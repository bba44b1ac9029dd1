#pragma once

#include <string>

// The parts of a file path that documents need to name themselves and to find the files they
// refer to.
class VRKPathName {
  public:
    // The folder of `path` without its last slash ("plans/a.svg" gives "plans", "/a.svg" gives
    // "/"), or empty for a name without a folder (the current folder).
    static std::string Folder(const std::string& path) {
        const std::size_t slash = path.find_last_of('/');
        if (slash == std::string::npos) {
            return {};
        }
        return slash == 0 ? std::string("/") : path.substr(0, slash);
    }
    // The file's name without its folder ("plans/a.svg" gives "a.svg").
    static std::string Base(const std::string& path) {
        const std::size_t slash = path.find_last_of('/');
        return slash == std::string::npos ? path : path.substr(slash + 1);
    }
};
