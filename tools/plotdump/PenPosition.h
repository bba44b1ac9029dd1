#pragma once

#include <cmath>
#include <string>

#include "tools/plotdump/ListingOutput.h"

// Where the pen is, as far as the plot says, in the units the plot is in at that point (the
// decoder does not scale), and whether PU and PD take absolute or relative pairs. The position is
// unknown ("?") at the start and after whatever moves the pen in a way the decoder does not
// follow: a label, a change of units or rotation, polygon mode's end, HP-GL/2 entered at the PCL
// cursor. An absolute move makes it known again.
class PenPosition {
  public:
    void Forget() { x_ = y_ = NAN; }
    void MoveTo(double x, double y) {
        x_ = x;
        y_ = y;
    }
    void MoveBy(double dx, double dy) {
        x_ += dx;
        y_ += dy;
    }
    // A pair of PU, PD, PA or PR, taken in the current mode.
    void Pair(double x, double y) {
        if (absolute_) {
            MoveTo(x, y);
        } else {
            MoveBy(x, y);
        }
    }
    // The pen's end on an arc of `sweep` degrees around the centre.
    void Arc(double centreX, double centreY, double sweep) {
        const double radians = sweep * std::acos(-1.0) / 180.0;
        const double dx = x_ - centreX;
        const double dy = y_ - centreY;
        MoveTo(centreX + dx * std::cos(radians) - dy * std::sin(radians),
               centreY + dx * std::sin(radians) + dy * std::cos(radians));
    }
    void SetAbsolute(bool absolute) { absolute_ = absolute; }

    double X() const { return x_; }
    double Y() const { return y_; }
    // "X,Y", or "?" when either is unknown.
    std::string Text() const {
        if (!std::isfinite(x_) || !std::isfinite(y_)) {
            return "?";
        }
        return ListingOutput::Number(x_) + "," + ListingOutput::Number(y_);
    }

  private:
    double x_ = NAN;
    double y_ = NAN;
    bool absolute_ = true;
};
