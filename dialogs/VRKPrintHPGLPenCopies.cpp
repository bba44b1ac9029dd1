#include "dialogs/VRKPrintHPGLPenCopies.h"

#include <cstdint>
#include <cstdio>

#include "host/core/VRKSaturatingTrunc.h"
#include "properties/VRKPrintHPGLProperties.h"

const std::array<VRKPrintHPGLPenCopies::NamedColor, 7>& VRKPrintHPGLPenCopies::NamedColors() {
    static const std::array<NamedColor, 7> colors = {{
        {"Color1", "Black", 0, 0, 0},
        {"Color2", "Red", 255, 0, 0},
        {"Color3", "Green", 0, 255, 0},
        {"Color4", "Yellow", 255, 255, 0},
        {"Color5", "Blue", 0, 0, 255},
        {"Color6", "Magenta", 255, 0, 255},
        {"Color7", "Cyan", 0, 255, 255},
    }};
    return colors;
}

VRKPrintHPGLPenCopies::VRKPrintHPGLPenCopies(const VRKPrintHPGLProperties& record)
    : pens(record.GetPenTable()) {
    for (int pen = 0; pen < VRKPenTable::kSlots; ++pen) {
        const VRKPen& p = Pen(pen);
        colorIndex[static_cast<std::size_t>(pen)] = ColorIndexOf(p.red, p.green, p.blue);
    }
}

int VRKPrintHPGLPenCopies::ColorIndexOf(float red, float green, float blue) {
    // Truncated, so that a pen of 254.9 red counts as 254 and matches no named colour.
    const auto component = [](float value) {
        return static_cast<std::int64_t>(VRKSaturatingTrunc<int>(value));
    };
    const std::int64_t packed = (component(red) * 256 + component(green)) * 256 + component(blue);
    const auto& named = NamedColors();
    for (std::size_t i = 0; i < named.size(); ++i) {
        const NamedColor& c = named[i];
        if (packed == (std::int64_t{c.red} * 256 + c.green) * 256 + c.blue) {
            return static_cast<int>(i);
        }
    }
    return kFreeColor;
}

int VRKPrintHPGLPenCopies::RowCount() const {
    return pens.UsedSlots() > 1 ? pens.UsedSlots() - 1 : 0;
}

std::string VRKPrintHPGLPenCopies::NumberCell(int pen) {
    return std::to_string(pen);
}

std::string VRKPrintHPGLPenCopies::WidthCell(float width) {
    char text[64];
    std::snprintf(text, sizeof text, "%1.2f mm", static_cast<double>(width));
    return text;
}

std::string VRKPrintHPGLPenCopies::ActivationCell(bool enabled) {
    // Four blanks, a plus, two blanks; seven blanks: the column keeps its width either way.
    return enabled ? "    +  " : "       ";
}

void VRKPrintHPGLPenCopies::ChooseNamedColor(int pen, int line) {
    VRKPen* p = pens.At(pen);
    const auto& named = NamedColors();
    if (p == nullptr || line < 0 || line >= static_cast<int>(named.size())) {
        return;
    }
    const NamedColor& c = named[static_cast<std::size_t>(line)];
    colorIndex[static_cast<std::size_t>(pen)] = line;
    p->red = static_cast<float>(c.red);
    p->green = static_cast<float>(c.green);
    p->blue = static_cast<float>(c.blue);
}

void VRKPrintHPGLPenCopies::ChooseFreeColor(int pen, float red, float green, float blue) {
    VRKPen* p = pens.At(pen);
    if (p == nullptr) {
        return;
    }
    colorIndex[static_cast<std::size_t>(pen)] = kFreeColor;
    p->red = red;
    p->green = green;
    p->blue = blue;
}

void VRKPrintHPGLPenCopies::SetWidth(int pen, float width) {
    if (VRKPen* p = pens.At(pen)) {
        p->width = width;
    }
}

void VRKPrintHPGLPenCopies::SetEnabled(int pen, bool enabled) {
    if (VRKPen* p = pens.At(pen)) {
        p->enable = enabled ? 1 : 0;
    }
}

void VRKPrintHPGLPenCopies::WriteTo(VRKPrintHPGLProperties& record) const {
    record.SetPenTable(pens);
}

void VRKPrintHPGLPenCopies::ResetPens(VRKPrintHPGLProperties& record) {
    const VRKPrintHPGLProperties defaults;
    record.SetPenTable(defaults.GetPenTable());
}
