#include "host/core/VRKEnvironment.h"

#include <cstdlib>

namespace VRKEnvironment {

std::optional<std::string> Get(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr) {
        return std::nullopt;
    }
    return std::string(value);
}

bool IsDefined(const char* name) {
    return std::getenv(name) != nullptr;
}

std::string TemporaryDirectory() {
    std::string dir = Get("TMPDIR").value_or("");
    if (dir.empty()) {
        return "/tmp/";
    }
    if (dir.back() != '/') {
        dir.push_back('/');
    }
    return dir;
}

}  // namespace VRKEnvironment
