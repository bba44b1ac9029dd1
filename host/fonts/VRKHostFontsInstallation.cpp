// Linking VRKHostFonts is how a program asks for text drawn as geometry: loading the library
// installs an outliner for the host's default font, and unloading it takes the outliner out.
#include "host/core/VRKTextOutliner.h"
#include "host/fonts/VRKFreeTypeOutliner.h"

namespace {

struct Installation {
    VRKFreeTypeOutliner outliner;

    Installation() { VRKTextOutliner::Install(&outliner); }
    ~Installation() {
        if (VRKTextOutliner::Installed() == &outliner) {
            VRKTextOutliner::Install(nullptr);
        }
    }
};

Installation installation;

}  // namespace
