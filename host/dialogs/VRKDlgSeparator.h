#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A horizontal line across every column of its container's row.
class VRKDlgSeparator : public VRKDlgObject {
  public:
    VRKDlgSeparator(VRKDlgContainer& parent, const std::string& key);
};
