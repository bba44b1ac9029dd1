#include "properties/VRKPrintHPGLProperties.h"

#include <algorithm>

VRK_DEFINE_CLASS(VRKPrintHPGLProperties, VRKBaseUnknown, "VRKNull", "Print")

namespace {

struct DefaultPen {
    float red, green, blue;
};

// White for the "no pen" slot, then black, red, green, yellow, blue, magenta and cyan.
constexpr DefaultPen kDefaultPens[8] = {
    {255, 255, 255}, {0, 0, 0},   {255, 0, 0},   {0, 255, 0},
    {255, 255, 0},   {0, 0, 255}, {255, 0, 255}, {0, 255, 255},
};

}  // namespace

VRKPrintHPGLProperties::VRKPrintHPGLProperties()
    : red(new float[kPenSlots]),
      green(new float[kPenSlots]),
      blue(new float[kPenSlots]),
      width(new float[kPenSlots]),
      enable(new int[kPenSlots]) {
    for (int i = 0; i < 8; ++i) {
        red[i] = kDefaultPens[i].red;
        green[i] = kDefaultPens[i].green;
        blue[i] = kDefaultPens[i].blue;
        width[i] = 0.35f;
        enable[i] = 1;
    }
    // Further pens are black and disabled, up to the pen count (all 32 slots here).
    for (int i = 8; i < penCount; ++i) {
        red[i] = green[i] = blue[i] = 0.0f;
        width[i] = 0.35f;
        enable[i] = 0;
    }
}

VRKPrintHPGLProperties::~VRKPrintHPGLProperties() {
    delete[] red;
    delete[] green;
    delete[] blue;
    delete[] width;
    delete[] enable;
    red = green = blue = width = nullptr;
    enable = nullptr;
}

void VRKPrintHPGLProperties::GetPenColors(float* redOut, float* greenOut, float* blueOut) const {
    std::copy_n(red, penCount, redOut);
    std::copy_n(green, penCount, greenOut);
    std::copy_n(blue, penCount, blueOut);
}

void VRKPrintHPGLProperties::GetPenWidths(float* widthOut) const {
    std::copy_n(width, penCount, widthOut);
}

void VRKPrintHPGLProperties::GetPenEnables(int* enableOut) const {
    std::copy_n(enable, penCount, enableOut);
}

void VRKPrintHPGLProperties::GetPenSlots(float* redOut, float* greenOut, float* blueOut,
                                         float* widthOut, int* enableOut) const {
    std::copy_n(red, kPenSlots, redOut);
    std::copy_n(green, kPenSlots, greenOut);
    std::copy_n(blue, kPenSlots, blueOut);
    std::copy_n(width, kPenSlots, widthOut);
    std::copy_n(enable, kPenSlots, enableOut);
}

void VRKPrintHPGLProperties::SetPens(int count, const float* redIn, const float* greenIn,
                                     const float* blueIn, const float* widthIn,
                                     const int* enableIn) {
    penCount = count;
    std::copy_n(redIn, count, red);
    std::copy_n(greenIn, count, green);
    std::copy_n(blueIn, count, blue);
    std::copy_n(widthIn, count, width);
    std::copy_n(enableIn, count, enable);
}
