#pragma once

#include <string>

#include "host/core/VRKBaseUnknown.h"

class VRKPrintGenerator;

// Opens a generator's property dialog and waits until the editing is over. It lives in a library
// of its own (libVRKPlotEdit), which vrkplot loads only for `--edit`, so that plotting never
// loads the widget toolkit; the library enters the class "VRKPlotSettingsEditor" in the class
// dictionary as it loads.
class SettingsEditor : public VRKBaseUnknown {
  public:
    enum Outcome { kEdited, kNoDisplay, kNoDialog };
    // Shows the generator's dialog until it and every dialog it opened have ended. kNoDisplay,
    // with the reason in `why`, when no dialog can be shown; kNoDialog when the generator has
    // none.
    virtual Outcome Edit(VRKPrintGenerator& generator, std::string& why) = 0;
};
