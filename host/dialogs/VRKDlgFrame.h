#pragma once

#include <string>

#include "host/dialogs/VRKDlgContainer.h"

// A box around a group of widgets, with its title (SetTitle) on its top edge. Frames made one
// after another in a container stack vertically.
class VRKDlgFrame : public VRKDlgContainer {
  public:
    VRKDlgFrame(VRKDlgContainer& parent, const std::string& key);
};
