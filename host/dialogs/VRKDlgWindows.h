#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// An empty area of the dialog that a host may draw into. OnCreated is called once, the first time
// the area is shown.
class VRKDlgWindows : public VRKDlgObject {
  public:
    VRKDlgWindows(VRKDlgContainer& parent, const std::string& key);

    // The area's smallest size in pixels.
    void SetMinimumSize(int width, int height);
    bool IsCreated() const;
    void SetOnCreated(VRKDlgCallback callback);
};
