#include "host/core/VRKFont.h"

#include "host/core/VRKEnvironment.h"

namespace {
constexpr const char* kDejaVuSans = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
}

std::string VRKFont::GetFileName() const {
    const std::size_t slash = path_.find_last_of('/');
    return slash == std::string::npos ? path_ : path_.substr(slash + 1);
}

VRKFont VRKFont::GetDefaultFont() {
    std::string path = VRKEnvironment::Get("VRK_DEFAULT_FONT").value_or("");
    return VRKFont(path.empty() ? kDejaVuSans : path);
}
