// Line attributes and text: PW, LA, SL, DI, LO, and labels in the plotter's own fonts.

#include <array>
#include <cmath>
#include <numbers>
#include <string>

#include "generator/HPGL2Encoding.h"
#include "generator/HPGL2Writer.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKSaturatingTrunc.h"

namespace {

constexpr double kPi = std::numbers::pi;

// Line type and pattern length (millimetres) of a line style; a length below 0 keeps the current
// one.
struct LineStyle {
    int type;
    float length;
};

// Solid, dashed, dotted, dash-dot, dash-dot-dot.
constexpr LineStyle kLineStyles[5] = {
    {1, -1.0f}, {2, 2.0f}, {3, 5.5f}, {5, 10.0f}, {6, 12.0f},
};

// Label origin of each of the host's anchors (28 to 39); other values give 1, left baseline.
int labelOrigin(int anchor) {
    switch (anchor) {
        case 28:
            return 11;
        case 30:
            return 2;
        case 31:
            return 3;
        case 32:
            return 14;
        case 33:
            return 4;
        case 34:
            return 5;
        case 35:
            return 6;
        case 36:
            return 17;
        case 37:
            return 7;
        case 38:
            return 8;
        case 39:
            return 9;
        default:
            return 1;
    }
}

// The LA value of one of three host attributes numbered from `first` (caps 10 to 12, joins 13 to
// 15); 0, the plotter's default, for any other.
int lineAttributeKind(VRKPrintLineAttribute attribute, int first, const std::array<int, 3>& kinds) {
    const int offset = static_cast<int>(attribute) - first;
    return offset >= 0 && offset < 3 ? kinds[static_cast<std::size_t>(offset)] : 0;
}

}  // namespace

void VRKPrintHPGL2Generator::DrvSetLineCap(VRKPrintLineAttribute cap) {
    if (isHPGL()) {
        return;
    }
    closeEncodedPolyline();
    // LA1: 1 butt, 2 square, 4 round; 0 restores the default.
    HPGL2Writer::LineAttribute(out(), 1, lineAttributeKind(cap, 10, {1, 2, 4}));
}

void VRKPrintHPGL2Generator::DrvSetLineJoin(VRKPrintLineAttribute join) {
    if (isHPGL()) {
        return;
    }
    closeEncodedPolyline();
    // LA2: 1 mitred, 4 round, 5 bevelled; 0 restores the default.
    HPGL2Writer::LineAttribute(out(), 2, lineAttributeKind(join, 13, {1, 4, 5}));
}

// The line type only decides whether ellipses may be drawn natively; no LT is ever written, so
// dashed curves come flattened from the host. The integer styles 1 to 5 and the attribute styles 0
// to 4 name the same five types; the user-defined styles are type 8.
void VRKPrintHPGL2Generator::applyLineStyle(int index) {
    const LineStyle& style = kLineStyles[index];
    currentLineType = style.type;
    if (style.length >= 0.0f) {
        linePatternLength = style.length;
    }
}

void VRKPrintHPGL2Generator::DrvSetLineStyle(int style) {
    closeEncodedPolyline();
    if (style >= 1 && style <= 5) {
        applyLineStyle(style - 1);
    } else if (style == 6 || style == 7) {
        currentLineType = 8;
        linePatternLength = 0.0f;
    } else {
        currentLineType = style;
    }
}

void VRKPrintHPGL2Generator::DrvSetLineStyle(VRKPrintLineAttribute style, float length,
                                             const float* /*pattern*/) {
    closeEncodedPolyline();
    const int attribute = static_cast<int>(style);
    if (attribute >= 0 && attribute <= 4) {
        applyLineStyle(attribute);
    } else if (attribute >= 5 && attribute <= 7) {
        currentLineType = 8;
        linePatternLength = length;
    }
}

void VRKPrintHPGL2Generator::DrvSetTextAttribute(VRKPrintTextAttribute kind, float value) {
    VRKPrintFileGenerator::DrvSetTextAttribute(kind, value);
    if (isHPGL()) {
        return;
    }
    closeEncodedPolyline();
    VRKPrintStream& s = out();
    // The enumeration value as an int; one beyond the int names nothing, as any other unknown.
    const int v = VRKSaturatingTrunc<int>(value);
    switch (static_cast<int>(kind)) {
        case 0:  // font: the plotter typeface standing in for it
            switch (v) {
                case 11:
                    textTypeface = hostDrawsDefaultFont != 0 ? -1 : 3;
                    break;
                case 12:
                case 15:
                    textTypeface = 3;
                    break;
                case 13:
                    textTypeface = 4;
                    break;
                case 14:
                    textTypeface = 5;
                    break;
                case 16:
                    textTypeface = 31;
                    break;
                case 17:
                    textTypeface = 47;
                    break;
                case 18:
                    textTypeface = 23;
                    break;
                case 19:
                    textTypeface = 15;
                    break;
                case 20:
                    textTypeface = 43;
                    break;
                case 21:
                    textTypeface = 45;
                    break;
                default:
                    break;
            }
            fontChanged = 1;
            break;
        case 2:  // size
            textSize = value;
            fontChanged = 1;
            break;
        case 4:  // weight: stroke weight -7 (thin) to 7 (bold)
            switch (v) {
                case 23:
                    textWeight = -7;
                    break;
                case 24:
                    textWeight = -3;
                    break;
                case 25:
                    textWeight = 0;
                    break;
                case 26:
                    textWeight = 3;
                    break;
                case 27:
                    textWeight = 7;
                    break;
                default:
                    break;
            }
            fontChanged = 1;
            break;
        case 5:  // slant, degrees
            // The plotter leans characters the other way round from the host, hence the sign.
            // Near a quarter turn the tangent leaves the int: held at its limits.
            HPGL2Writer::Slant(s,
                               VRKSaturatingTrunc<int>(std::tan(value * kPi / 180) * -100) / 100.0);
            textSlant = value;
            break;
        case 6: {  // direction, degrees, turned with the page
            const double a = (value + textAngleOffset) * kPi / 180;
            HPGL2Writer::Direction(s, VRKSaturatingTrunc<int>(std::cos(a) * 100) / 100.0,
                                   VRKSaturatingTrunc<int>(std::sin(a) * 100) / 100.0);
            break;
        }
        case 7:  // anchor
            HPGL2Writer::LabelOrigin(s, labelOrigin(v));
            break;
        default:
            break;
    }
}

void VRKPrintHPGL2Generator::GetPrintTextManagement(VRKFont* /*font*/,
                                                    const VRKUnicodeString& /*text*/,
                                                    VRKPrintTextSupport& support,
                                                    VRKPrintTextClipping& clipping) {
    clipping = VRKTextClippingNone;
    support = plotterDrawsText() ? VRKTextSupportGeneratorDraws : VRKTextSupportHostDraws;
}

bool VRKPrintHPGL2Generator::plotterDrawsText() const {
    // The plotter's fonts lean forward by at most 45 degrees.
    return !isHPGL() && textSlant >= 0.0f && textSlant <= 45.0f && GetTextAsGeometry() == 0 &&
           textTypeface != -1;
}

void VRKPrintHPGL2Generator::DrvDrawText(float x, float y, const VRKUnicodeString& text) {
    if (!plotterDrawsText()) {
        VRKPrintFileGenerator::DrvDrawText(x, y, text);
        return;
    }
    closeEncodedPolyline();
    VRKPrintStream& s = out();
    if (fontChanged != 0) {
        fontChanged = 0;
        if (textTypeface == 3 && textSize > 0.0f) {
            // Fixed spacing: pitch in characters per inch for this character height.
            HPGL2Writer::FixedFont(s, 1 / (textSize / 25.4 * 0.6024823502618993), textWeight,
                                   textTypeface);
        } else {
            // Proportional spacing: height in points.
            HPGL2Writer::ProportionalFont(s, textSize / 0.35277777777777775, textWeight,
                                          textTypeface);
        }
    }
    // An ETX inside the text ends the label there; the character after it is blanked, as the
    // labels have always been written.
    std::string label = text.ConvertToChar().str();
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] == HPGL2Encoding::kLabelTerminator) {
            label[i + 1] = ' ';
        }
    }
    HPGL2Writer::PenUpAt(s, static_cast<float>(VRKSaturatingTrunc<int>(x * 40.0)) + originOffsetX,
                         static_cast<float>(VRKSaturatingTrunc<int>(y * 40.0)) + originOffsetY);
    HPGL2Writer::Label(s, label);
}
