#pragma once

#include <string>

#include "host/drawing/VRKDrawing.h"

// A fill or stroke value as written: none, currentColor, a colour, or a reference (url(#id))
// with what to use when the reference cannot be used.
class VRKSvgPaint {
  public:
    enum class Kind { kNone, kCurrentColor, kColor, kReference };
    Kind kind = Kind::kNone;
    VRKDrawingColor color;
    std::string reference;  // the fragment after '#', or the whole IRI when not local
    bool localReference = true;
    // The fallback after a reference: none when not given.
    Kind fallback = Kind::kNone;
    bool hasFallback = false;
    VRKDrawingColor fallbackColor;
};
