#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A text (SetTitle) or a picture. A picture that cannot be read shows its name as text.
class VRKDlgLabel : public VRKDlgObject {
  public:
    VRKDlgLabel(VRKDlgContainer& parent, const std::string& key);

    // NAME.png from the resource folder; an empty name shows the title again.
    void SetPicture(const std::string& name);
    const std::string& GetPicture() const;
    // Whether the picture was read (false when none is set or its file is missing).
    bool HasPictureLoaded() const;
};
