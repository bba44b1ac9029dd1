#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A radio button with its text (SetTitle). Radio buttons are not exclusive by themselves, even in
// one frame: clicking one checks it and leaves the others as they are, and the dialog's code sets
// the others in OnChange. SetExclusive(true) joins the button to the exclusive group of its
// container, where checking one unchecks the others. Clicking a checked exclusive button keeps it
// checked; clicking a checked non-exclusive one unchecks it.
class VRKDlgRadioButton : public VRKDlgObject {
  public:
    VRKDlgRadioButton(VRKDlgContainer& parent, const std::string& key);

    void SetState(bool checked);
    bool GetState() const;
    void SetExclusive(bool exclusive);
    void SetOnChange(VRKDlgCallback callback);
};
