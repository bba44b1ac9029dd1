#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "host/drawing/VRKDrawing.h"

class VRKPrintGenerator;

// The colours of a drawing as the generator's palette: each distinct colour gets the next index
// and is defined (DefineColor) the first time it is used, so a plot defines only the colours it
// draws with, each once.
//
// Indices run from 1 to 255. Index 0 is left alone: on a pen plotter and in the printers'
// HP-GL/2 it is the white or empty pen, and the pen put away at the end of a job. A drawing with
// more colours than that draws the rest in the nearest colour already defined (the smallest sum
// of the differences of red, green and blue).
class VRKDrawingPalette {
  public:
    static constexpr int kFirstIndex = 1;
    static constexpr int kLastIndex = 255;

    // The index of `color`, defining it on `generator` when it is new.
    int Index(const VRKDrawingColor& color, VRKPrintGenerator& generator);

    // How many colours are defined, and how many asked-for colours had no index of their own.
    int GetDefinedCount() const { return static_cast<int>(colors_.size()); }
    int GetSubstitutedCount() const { return static_cast<int>(substituted_.size()); }

  private:
    int Nearest(const VRKDrawingColor& color) const;

    std::vector<VRKDrawingColor> colors_;  // colours_[i] has index kFirstIndex + i
    // Colours drawn in another colour's index, each listed once.
    std::vector<VRKDrawingColor> substituted_;
    // The last colour asked for, since a drawing asks for the same one many times in a row.
    VRKDrawingColor lastColor_;
    int lastIndex_ = -1;
};
