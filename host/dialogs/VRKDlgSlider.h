#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A horizontal slider over [min, max] in `steps` equal steps. It holds any value of its range
// that the program gives it (a record's 74 stays 74), shown where it lies between the steps; the
// arrow and Page keys move it by one step ((max - min) / steps), Home and End to the ends, the
// mouse anywhere. OnChange when the user moves it.
class VRKDlgSlider : public VRKDlgObject {
  public:
    VRKDlgSlider(VRKDlgContainer& parent, const std::string& key);

    // False, changing nothing, when max < min, steps < 1 (or above a million) or a bound is not
    // finite.
    bool SetRange(double min, double max, int steps);
    // Clamped to the range; not a number counts as the smaller end.
    void SetValue(double value);
    double GetValue() const;
    void SetOnChange(VRKDlgCallback callback);
};
