#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

// A widget that holds other widgets in a grid: a dialog's client area, a tab page, a frame.
// Children are laid out in the order they are made, one per row, unless placed with SetGrid; the
// keyboard focus goes through them in the same order.
class VRKDlgContainer : public VRKDlgObject {
  public:
    // How much of the extra width a column takes (0 for none, the default).
    void SetColumnStretch(int column, int stretch);

  protected:
    using VRKDlgObject::VRKDlgObject;
};
