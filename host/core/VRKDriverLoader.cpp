#include "host/core/VRKDriverLoader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <climits>
#include <vector>

#include "host/core/VRKEnvironment.h"

namespace VRKDriverLoader {

namespace {

std::string programFolder() {
    char path[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
    if (n <= 0) {
        return {};
    }
    std::string exe(path, static_cast<std::size_t>(n));
    const std::size_t slash = exe.find_last_of('/');
    return slash == std::string::npos ? std::string() : exe.substr(0, slash);
}

}  // namespace

bool Load(const std::string& driverName, std::string& error) {
    const std::string file = "lib" + driverName + ".so";
    std::vector<std::string> candidates;
    const std::string searchPath = VRKEnvironment::Get("VRK_DRIVER_PATH").value_or("");
    for (std::size_t from = 0; from <= searchPath.size();) {
        const std::size_t colon = std::min(searchPath.find(':', from), searchPath.size());
        if (colon > from) {
            candidates.push_back(searchPath.substr(from, colon - from) + "/" + file);
        }
        from = colon + 1;
    }
    const std::string folder = programFolder();
    if (!folder.empty()) {
        candidates.push_back(folder + "/../lib/" + file);
    }
    candidates.push_back(file);

    error.clear();
    for (const std::string& candidate : candidates) {
        if (::dlopen(candidate.c_str(), RTLD_NOW | RTLD_GLOBAL) != nullptr) {
            return true;
        }
        const char* why = ::dlerror();
        if (error.empty() && why != nullptr) {
            error = why;
        }
    }
    if (error.empty()) {
        error = "cannot load " + file;
    }
    return false;
}

}  // namespace VRKDriverLoader
