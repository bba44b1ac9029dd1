#pragma once

#include "host/xml/VRKLightXmlElement.h"

class VRKBaseUnknown;

namespace vrkplot {

// Opens the generator's settings dialog (loading the dialogs for it) and waits until the editing
// is over. 0 with `changed` saying whether the settings differ afterwards, and `settings` holding
// them then; 2 when no dialog could be shown, the message printed.
int EditInDialog(VRKBaseUnknown* generator, bool& changed, VRKLightXmlElement& settings);

}  // namespace vrkplot
