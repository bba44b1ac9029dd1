#include "host/job/VRKJobName.h"

namespace {

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

}  // namespace

std::string VRKJobName::Clean(const std::string& name) {
    std::string clean = name;
    for (char& c : clean) {
        if (c == '"') {
            c = '\'';
        } else if (isControl(c)) {
            c = ' ';
        }
    }
    return clean;
}

std::string VRKJobName::Changes(const std::string& name) {
    bool quotes = false;
    bool controls = false;
    for (const char c : name) {
        quotes = quotes || c == '"';
        controls = controls || isControl(c);
    }
    std::string changes;
    if (quotes) {
        changes = "double quotes became apostrophes";
    }
    if (controls) {
        changes += std::string(changes.empty() ? "" : ", ") + "control characters became blanks";
    }
    return changes;
}
