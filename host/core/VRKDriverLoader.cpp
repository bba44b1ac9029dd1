#include "host/core/VRKDriverLoader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "host/core/VRKEnvironment.h"

namespace VRKDriverLoader {

namespace {

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::string programFolder() {
    char path[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
    if (n <= 0) {
        return {};
    }
    return folderOf(std::string(path, static_cast<std::size_t>(n)));
}

}  // namespace

std::string LoaderFolder() {
    // dladdr names the object that holds an address: here the host library this function is
    // compiled into. Its path is the one the dynamic linker opened, symbolic links resolved.
    Dl_info info{};
    if (::dladdr(reinterpret_cast<const void*>(&LoaderFolder), &info) == 0 ||
        info.dli_fname == nullptr) {
        return {};
    }
    char resolved[PATH_MAX];
    if (::realpath(info.dli_fname, resolved) == nullptr) {
        return {};
    }
    return folderOf(resolved);
}

std::vector<std::string> SearchPath(const std::string& driverName) {
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
    if (const std::string folder = programFolder(); !folder.empty()) {
        candidates.push_back(folder + "/../lib/" + file);
    }
    // A program installed in bin/ or in the spooler's filter folder with the libraries in a
    // multiarch folder (lib/x86_64-linux-gnu) has no driver in ../lib; the host libraries know
    // where they are.
    if (const std::string folder = LoaderFolder(); !folder.empty()) {
        candidates.push_back(folder + "/" + file);
    }
    candidates.push_back(file);
    return candidates;
}

bool Load(const std::string& driverName, std::string& error) {
    error.clear();
    for (const std::string& candidate : SearchPath(driverName)) {
        if (::dlopen(candidate.c_str(), RTLD_NOW | RTLD_GLOBAL) != nullptr) {
            return true;
        }
        const char* why = ::dlerror();
        if (error.empty() && why != nullptr) {
            error = why;
        }
    }
    if (error.empty()) {
        error = "cannot load lib" + driverName + ".so";
    }
    return false;
}

}  // namespace VRKDriverLoader
