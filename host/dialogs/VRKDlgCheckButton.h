#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A check box with its text (SetTitle). OnChange when the user changes the state.
class VRKDlgCheckButton : public VRKDlgObject {
  public:
    VRKDlgCheckButton(VRKDlgContainer& parent, const std::string& key);

    void SetState(bool checked);
    bool GetState() const;
    void SetOnChange(VRKDlgCallback callback);
};
