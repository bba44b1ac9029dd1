#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A colour swatch: an area filled with one colour, given as red, green and blue from 0 to 1
// (clamped).
class VRKDlgColorViewer : public VRKDlgObject {
  public:
    VRKDlgColorViewer(VRKDlgContainer& parent, const std::string& key);

    // Takes the colour; it is shown at the next Redraw().
    void SetBackgroundColor(double red, double green, double blue);
    void GetBackgroundColor(double& red, double& green, double& blue) const;
    void Redraw();
    // The number of times the area was painted (for tests of Redraw).
    int GetPaintCount() const;
};
