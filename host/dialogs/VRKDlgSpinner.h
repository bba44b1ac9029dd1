#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A number field with up and down arrows.
//
// SetRange(min, max, steps): the value stays within [min, max] and an arrow (or the Up and Down
// keys) moves it by (max - min) / steps. SetFormat takes a printf format of one double, e.g.
// "%1.2f mm" or "%4.0f"; the default is "%g". Typed text is read from its first number on, so the
// unit may be typed or left out.
//
// OnUp and OnDown are called after the user stepped the value up or down; OnModify after the user
// changed it by typing. Setting the value from code calls none of them.
class VRKDlgSpinner : public VRKDlgObject {
  public:
    VRKDlgSpinner(VRKDlgContainer& parent, const std::string& key);

    // False, changing nothing, when max < min, steps < 1 or a bound is not finite.
    bool SetRange(double min, double max, int steps);
    double GetMin() const;
    double GetMax() const;
    double GetStep() const;
    // False, changing nothing, when the format is not one conversion of a double (%f, %e, %g, with
    // flags, width and precision) with any other text around it ("%%" for a percent sign).
    bool SetFormat(const std::string& format);
    // The value as shown, e.g. "12.50 mm".
    std::string GetText() const;

    // Clamped to the range.
    void SetValue(double value);
    double GetValue() const;

    void SetOnModify(VRKDlgCallback callback);
    void SetOnUp(VRKDlgCallback callback);
    void SetOnDown(VRKDlgCallback callback);
};
