#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A horizontal slider over [min, max] in `steps` equal steps: its values are
// min + i * (max - min) / steps for i from 0 to steps. OnChange when the user moves it (mouse or
// the arrow, Page, Home and End keys).
class VRKDlgSlider : public VRKDlgObject {
  public:
    VRKDlgSlider(VRKDlgContainer& parent, const std::string& key);

    // False, changing nothing, when max < min, steps < 1 or a bound is not finite.
    bool SetRange(double min, double max, int steps);
    // Goes to the nearest step, clamped to the range.
    void SetValue(double value);
    double GetValue() const;
    void SetOnChange(VRKDlgCallback callback);
};
