#include "host/drawing/VRKDrawingPalette.h"

#include <algorithm>
#include <cstdlib>

#include "host/core/VRKPrintGenerator.h"

int VRKDrawingPalette::Index(const VRKDrawingColor& color, VRKPrintGenerator& generator) {
    if (lastIndex_ >= 0 && color == lastColor_) {
        return lastIndex_;
    }
    int index = -1;
    const auto found = std::find(colors_.begin(), colors_.end(), color);
    if (found != colors_.end()) {
        index = kFirstIndex + static_cast<int>(found - colors_.begin());
    } else if (kFirstIndex + static_cast<int>(colors_.size()) <= kLastIndex) {
        index = kFirstIndex + static_cast<int>(colors_.size());
        colors_.push_back(color);
        generator.DefineColor(index, color.r / 255.0f, color.g / 255.0f, color.b / 255.0f);
    } else {
        index = Nearest(color);
        if (std::find(substituted_.begin(), substituted_.end(), color) == substituted_.end()) {
            substituted_.push_back(color);
        }
    }
    lastColor_ = color;
    lastIndex_ = index;
    return index;
}

int VRKDrawingPalette::Nearest(const VRKDrawingColor& color) const {
    int best = 0;
    int bestDistance = 1 << 30;
    for (std::size_t i = 0; i < colors_.size(); ++i) {
        const VRKDrawingColor& c = colors_[i];
        const int distance =
            std::abs(c.r - color.r) + std::abs(c.g - color.g) + std::abs(c.b - color.b);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = static_cast<int>(i);
        }
    }
    return kFirstIndex + best;
}
