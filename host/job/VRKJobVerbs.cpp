#include "host/job/VRKJobVerbs.h"

#include <array>

namespace {

// The verbs' names as views, for the comparisons of every line.
constexpr auto kNames = [] {
    std::array<std::string_view, VRKJobVerbs::kCount> names{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        names[i] = VRKJobVerbs::kAll[i].name;
    }
    return names;
}();

}  // namespace

const VRKJobVerb* VRKJobVerbs::Find(std::string_view name, const VRKJobVerb* previous) {
    // The previous verb is compared byte by byte (a verb is a short word; a library call to
    // compare it would cost more).
    if (previous != nullptr) {
        const std::string_view known = kNames[IndexOf(previous)];
        if (known.size() == name.size()) {
            std::size_t i = 0;
            while (i < name.size() && known[i] == name[i]) {
                ++i;
            }
            if (i == name.size()) {
                return previous;
            }
        }
    }
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (kNames[i] == name) {
            return &kAll[i];
        }
    }
    return nullptr;
}

const VRKJobVerb* VRKJobVerbs::FindIgnoringCase(std::string_view name) {
    for (std::size_t k = 0; k < kNames.size(); ++k) {
        const std::string_view known = kNames[k];
        bool same = known.size() == name.size();
        for (std::size_t i = 0; same && i < known.size(); ++i) {
            same = (known[i] | 0x20) == (name[i] | 0x20);
        }
        if (same) {
            return &kAll[k];
        }
    }
    return nullptr;
}
