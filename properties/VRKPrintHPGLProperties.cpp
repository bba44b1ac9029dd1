#include "properties/VRKPrintHPGLProperties.h"

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

VRKPrintHPGLProperties::VRKPrintHPGLProperties() {
    for (int i = 0; i < 8; ++i) {
        pens.Slots()[i] = {kDefaultPens[i].red, kDefaultPens[i].green, kDefaultPens[i].blue, 0.35f,
                           1};
    }
    // Further pens are black, 0.35 mm and disabled.
    for (int i = 8; i < kPenSlots; ++i) {
        pens.Slots()[i] = {0.0f, 0.0f, 0.0f, 0.35f, 0};
    }
}

void VRKPrintHPGLProperties::GetPenColors(float* redOut, float* greenOut, float* blueOut) const {
    for (int i = 0; i < pens.UsedSlots(); ++i) {
        const VRKPen& pen = pens.Slots()[i];
        redOut[i] = pen.red;
        greenOut[i] = pen.green;
        blueOut[i] = pen.blue;
    }
}

void VRKPrintHPGLProperties::GetPenWidths(float* widthOut) const {
    for (int i = 0; i < pens.UsedSlots(); ++i) {
        widthOut[i] = pens.Slots()[i].width;
    }
}

void VRKPrintHPGLProperties::GetPenEnables(int* enableOut) const {
    for (int i = 0; i < pens.UsedSlots(); ++i) {
        enableOut[i] = pens.Slots()[i].enable;
    }
}

void VRKPrintHPGLProperties::SetPens(int count, const float* redIn, const float* greenIn,
                                     const float* blueIn, const float* widthIn,
                                     const int* enableIn) {
    pens.SetCount(count);
    for (int i = 0; i < pens.UsedSlots(); ++i) {
        pens.Slots()[i] = {redIn[i], greenIn[i], blueIn[i], widthIn[i], enableIn[i]};
    }
}
