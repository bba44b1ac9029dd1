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
