#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/core/VRKPrintLineAttribute.h"
#include "host/core/VRKPrintTextAttribute.h"
#include "host/svg/VRKSvgPaint.h"

// The properties of an element that the importer draws with, once its declarations (presentation
// attributes, sheet rules, style attribute) are applied over what it inherits. Lengths are in the
// element's user units.
class VRKSvgStyle {
  public:
    using Declarations = std::vector<std::pair<std::string, std::string>>;

    VRKSvgPaint fill = BlackPaint();
    VRKSvgPaint stroke;
    double fillOpacity = 1.0;
    double strokeOpacity = 1.0;
    int fillRule = 1;  // 1 non-zero, 0 even-odd, as the host's polygons take it
    double strokeWidth = 1.0;
    int cap = VRKLineCapFlat;
    int join = VRKLineJoinMiter;
    std::vector<double> dashes;  // empty: solid
    VRKDrawingColor color;       // the `color` property, for currentColor
    double fontSize = 16.0;
    std::string fontFamily;
    bool bold = false;
    int anchor = VRKAnchorBaseLeft;
    bool visible = true;
    bool preserveSpace = false;  // xml:space="preserve"
    // Not inherited: whether the element is displayed, and its opacity times those of its
    // ancestors (group opacity is approximated by passing it down to what the group holds).
    bool display = true;
    double opacity = 1.0;

    // The style of an element whose parent's style is `parent`, with its declarations in the
    // order they apply (the last one of a name wins). `viewportDiagonal` is what a percentage of
    // stroke-width is taken of (user units).
    static VRKSvgStyle Cascade(const VRKSvgStyle& parent, const Declarations& declarations,
                               double viewportDiagonal);
    // Whether an attribute of that name is a presentation attribute (a property).
    static bool IsProperty(std::string_view name);

  private:
    static VRKSvgPaint BlackPaint() {
        VRKSvgPaint paint;
        paint.kind = VRKSvgPaint::Kind::kColor;
        return paint;
    }
    void Apply(const std::string& name, std::string_view value, const VRKSvgStyle& parent,
               double viewportDiagonal);
};
