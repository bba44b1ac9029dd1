#pragma once

#include <string>

#include "host/dialogs/VRKDlgContainer.h"

class VRKDlgTabContainer;

// One page of a tab container: its title is the tab's text, and the tab may show a picture.
class VRKDlgTabPage : public VRKDlgContainer {
  public:
    VRKDlgTabPage(VRKDlgTabContainer& parent, const std::string& key);

    // The tab's picture: NAME.png from the resource folder; an empty name removes it.
    void SetPicture(const std::string& name);
    const std::string& GetPicture() const;
};
