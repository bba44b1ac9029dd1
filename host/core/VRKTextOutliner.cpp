#include "host/core/VRKTextOutliner.h"

namespace {
// Constant-initialised, so a library that installs its outliner from a static object while it is
// being loaded finds it ready whatever the order of initialisation.
constinit VRKTextOutliner* installedOutliner = nullptr;
}  // namespace

VRKTextOutliner::~VRKTextOutliner() = default;

void VRKTextOutliner::Install(VRKTextOutliner* outliner) {
    installedOutliner = outliner;
}

VRKTextOutliner* VRKTextOutliner::Installed() {
    return installedOutliner;
}

bool VRKTextOutliner::OutlineInPieces(const VRKUnicodeString& text, float x, float y, float size,
                                      float direction, float slant, int anchor, int weight,
                                      const Take& take) {
    Outlines all;
    if (!Outline(text, x, y, size, direction, slant, anchor, weight, all)) {
        return false;
    }
    if (!all.glyphContours.empty()) {
        take(all);
    }
    return true;
}
