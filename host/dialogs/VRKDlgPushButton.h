#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A button with a text (SetTitle) or a picture; OnPush when the user pushes it.
class VRKDlgPushButton : public VRKDlgObject {
  public:
    VRKDlgPushButton(VRKDlgContainer& parent, const std::string& key);

    // NAME.png from the resource folder; a missing picture shows its name as the text.
    void SetPicture(const std::string& name);
    const std::string& GetPicture() const;
    void SetOnPush(VRKDlgCallback callback);
};
