#pragma once

// One pen of a pen plotter: its colour on the 0-255 scale, its width in millimetres, and whether
// the pen may be chosen (1) or not (0).
struct VRKPen {
    float red = 0.0f;
    float green = 0.0f;
    float blue = 0.0f;
    float width = 0.0f;
    int enable = 0;

    bool operator==(const VRKPen&) const = default;
};
