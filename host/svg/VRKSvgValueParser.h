#pragma once

#include <string_view>

#include "host/drawing/VRKDrawing.h"
#include "host/svg/VRKSvgMatrix.h"
#include "host/svg/VRKSvgPaint.h"
#include "host/svg/VRKSvgPathSink.h"

// The attribute grammars of SVG that SVG++ parses: path data, transform lists, colours and
// paints. This class's source is the only one that includes SVG++; nothing of it shows here.
// Every function returns false on a value it cannot parse and never throws.
class VRKSvgValueParser {
  public:
    // Sends the path's commands to `sink` as they are read; on an error in the data, the
    // commands before it have been sent (SVG draws a path up to its first error) and the result
    // is false.
    static bool ParsePath(std::string_view data, VRKSvgPathSink& sink);
    // The product of a transform list, in the order written.
    static bool ParseTransform(std::string_view text, VRKSvgMatrix& matrix);
    // A colour: a name of the SVG colour set, #rgb, #rrggbb, rgb(r, g, b), rgb(r%, g%, b%).
    static bool ParseColor(std::string_view text, VRKDrawingColor& color);
    // A paint: none, currentColor, a colour, url(#id) with an optional fallback.
    static bool ParsePaint(std::string_view text, VRKSvgPaint& paint);
};
