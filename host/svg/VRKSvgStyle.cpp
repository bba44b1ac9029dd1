#include "host/svg/VRKSvgStyle.h"

#include <algorithm>
#include <cmath>

#include "host/svg/VRKSvgLength.h"
#include "host/svg/VRKSvgValueParser.h"

namespace {

constexpr std::string_view kProperties[] = {"fill",
                                            "fill-opacity",
                                            "fill-rule",
                                            "stroke",
                                            "stroke-width",
                                            "stroke-opacity",
                                            "stroke-linecap",
                                            "stroke-linejoin",
                                            "stroke-dasharray",
                                            "opacity",
                                            "color",
                                            "font-size",
                                            "font-family",
                                            "font-weight",
                                            "text-anchor",
                                            "display",
                                            "visibility",
                                            "filter",
                                            "mask",
                                            "clip-path",
                                            "marker-start",
                                            "marker-mid",
                                            "marker-end",
                                            "stop-color",
                                            "stop-opacity",
                                            "stroke-miterlimit",
                                            "stroke-dashoffset",
                                            "font-style",
                                            "clip-rule"};

std::string_view Trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t' || text.front() == '\n' ||
                             text.front() == '\r')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\n' ||
                             text.back() == '\r')) {
        text.remove_suffix(1);
    }
    return text;
}

// An opacity: a number clamped to [0, 1]; false when it is not a number.
bool ParseOpacity(std::string_view text, double& opacity) {
    VRKSvgLength length;
    if (!VRKSvgLength::Parse(text, length) ||
        (length.unit != VRKSvgLength::Unit::kNone && length.unit != VRKSvgLength::Unit::kPercent) ||
        !std::isfinite(length.value)) {
        return false;
    }
    const double value =
        length.unit == VRKSvgLength::Unit::kPercent ? length.value / 100.0 : length.value;
    opacity = std::clamp(value, 0.0, 1.0);
    return true;
}

bool ParseDashes(std::string_view text, double reference, double fontSize,
                 std::vector<double>& dashes) {
    dashes.clear();
    if (text == "none") {
        return true;
    }
    std::string item;
    std::vector<double> values;
    auto flush = [&]() {
        if (item.empty()) {
            return true;
        }
        VRKSvgLength length;
        if (!VRKSvgLength::Parse(item, length)) {
            return false;
        }
        const double value = length.ToUser(reference, fontSize);
        if (!std::isfinite(value) || value < 0.0) {
            return false;
        }
        values.push_back(value);
        item.clear();
        return true;
    };
    for (const char c : text) {
        if (c == ',' || c == ' ' || c == '\t' || c == '\n' || c == '\r') {
            if (!flush()) {
                return false;
            }
        } else {
            item += c;
        }
    }
    if (!flush()) {
        return false;
    }
    double sum = 0.0;
    for (const double value : values) {
        sum += value;
    }
    // All zero is solid; an odd count repeats to an even one.
    if (sum > 0.0) {
        dashes = values;
        if (dashes.size() % 2 == 1) {
            dashes.insert(dashes.end(), values.begin(), values.end());
        }
    }
    return true;
}

}  // namespace

bool VRKSvgStyle::IsProperty(std::string_view name) {
    return std::find(std::begin(kProperties), std::end(kProperties), name) != std::end(kProperties);
}

VRKSvgStyle VRKSvgStyle::Cascade(const VRKSvgStyle& parent, const Declarations& declarations,
                                 double viewportDiagonal) {
    VRKSvgStyle style = parent;
    style.display = true;
    for (const auto& [name, value] : declarations) {
        style.Apply(name, Trim(value), parent, viewportDiagonal);
    }
    return style;
}

void VRKSvgStyle::Apply(const std::string& name, std::string_view value, const VRKSvgStyle& parent,
                        double viewportDiagonal) {
    // An invalid value is ignored, as if not given (the inherited value stays).
    if (value == "inherit") {
        if (name == "display") {
            display = parent.display;
        }
        return;
    }
    if (name == "fill" || name == "stroke") {
        VRKSvgPaint paint;
        if (VRKSvgValueParser::ParsePaint(value, paint)) {
            (name == "fill" ? fill : stroke) = paint;
        }
    } else if (name == "fill-opacity") {
        ParseOpacity(value, fillOpacity);
    } else if (name == "stroke-opacity") {
        ParseOpacity(value, strokeOpacity);
    } else if (name == "opacity") {
        double own = 1.0;
        if (ParseOpacity(value, own)) {
            opacity = parent.opacity * own;
        }
    } else if (name == "fill-rule") {
        if (value == "nonzero") {
            fillRule = 1;
        } else if (value == "evenodd") {
            fillRule = 0;
        }
    } else if (name == "stroke-width") {
        VRKSvgLength length;
        if (VRKSvgLength::Parse(value, length)) {
            const double width = length.ToUser(viewportDiagonal, fontSize);
            if (std::isfinite(width) && width >= 0.0) {
                strokeWidth = width;
            }
        }
    } else if (name == "stroke-linecap") {
        if (value == "butt") {
            cap = VRKLineCapFlat;
        } else if (value == "square") {
            cap = VRKLineCapSquare;
        } else if (value == "round") {
            cap = VRKLineCapRound;
        }
    } else if (name == "stroke-linejoin") {
        if (value == "miter" || value == "miter-clip" || value == "arcs") {
            join = VRKLineJoinMiter;
        } else if (value == "round") {
            join = VRKLineJoinRound;
        } else if (value == "bevel") {
            join = VRKLineJoinBevel;
        }
    } else if (name == "stroke-dasharray") {
        std::vector<double> parsed;
        if (ParseDashes(value, viewportDiagonal, fontSize, parsed)) {
            dashes = parsed;
        }
    } else if (name == "color") {
        VRKDrawingColor parsed;
        if (value != "currentColor" && VRKSvgValueParser::ParseColor(value, parsed)) {
            color = parsed;
        }
    } else if (name == "font-size") {
        VRKSvgLength length;
        if (VRKSvgLength::Parse(value, length)) {
            const double size = length.ToUser(parent.fontSize, parent.fontSize);
            if (std::isfinite(size) && size >= 0.0) {
                fontSize = size;
            }
        }
    } else if (name == "font-family") {
        fontFamily = std::string(value);
    } else if (name == "font-weight") {
        VRKSvgLength weight;
        if (value == "bold" || value == "bolder") {
            bold = true;
        } else if (value == "normal" || value == "lighter") {
            bold = false;
        } else if (VRKSvgLength::Parse(value, weight) && weight.unit == VRKSvgLength::Unit::kNone) {
            bold = weight.value >= 700.0;
        }
    } else if (name == "text-anchor") {
        if (value == "start") {
            anchor = VRKAnchorBaseLeft;
        } else if (value == "middle") {
            anchor = VRKAnchorBaseCenter;
        } else if (value == "end") {
            anchor = VRKAnchorBaseRight;
        }
    } else if (name == "display") {
        display = value != "none";
    } else if (name == "visibility") {
        if (value == "visible") {
            visible = true;
        } else if (value == "hidden" || value == "collapse") {
            visible = false;
        }
    } else if (name == "xml:space") {
        preserveSpace = value == "preserve";
    }
}
