// Linking VRKHostFonts is how a program asks for text drawn as geometry: loading the library
// installs an outliner for the host's default font, and unloading it takes the outliner out.
// With the linker's --as-needed, a program that calls nothing here must link the library with
// --no-as-needed, or it is dropped and the program has no outliner.
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
