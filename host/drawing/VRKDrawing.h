#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/core/VRKPixelImage.h"
#include "host/core/VRKPrintLineAttribute.h"
#include "host/core/VRKSmartRef.h"

// A drawing read from a document, ready to be played into a print generator: what an importer
// (SVG, PDF) makes, what the pen-travel ordering rearranges and what VRKDrawingPlayer turns into
// host calls. Everything is on the page already: millimetres, the origin at the lower left of
// the page and the y axis pointing up, transforms applied.
//
// The items keep the drawing's order. Strokes (what a pen draws) are kept apart from fills,
// texts and images, so that the strokes between two of those can be reordered without changing
// what lies over what.
//
// Points of all strokes and fills live in one array, so that a million path segments cost
// little more than their coordinates.

struct VRKDrawingPoint {
    float x = 0.0f;
    float y = 0.0f;
    friend bool operator==(const VRKDrawingPoint&, const VRKDrawingPoint&) = default;
};

// An opaque colour, 8 bits a component (opacity is blended over white before it gets here).
struct VRKDrawingColor {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    friend bool operator==(const VRKDrawingColor&, const VRKDrawingColor&) = default;
};

// What a stroke is drawn with: on a pen plotter, one pen.
struct VRKDrawingPen {
    VRKDrawingColor color;
    float width = 0.0f;  // millimetres; 0 is the thinnest line the device draws
    int lineStyle = VRKLineStyleSolid;
    VRKPrintLineAttribute cap = VRKLineCapFlat;
    VRKPrintLineAttribute join = VRKLineJoinMiter;
    friend bool operator==(const VRKDrawingPen&, const VRKDrawingPen&) = default;
};

// One pen-down piece of line: a start point and what follows it.
//
// kPath: points [first, first + count) with their flags; the first point is the start, a point
// flagged as a control point is one of the two control points of a cubic Bézier whose end is
// the next point not flagged. Lines and cubics may mix. Reversing the points (and their flags)
// draws the same line the other way round.
//
// kEllipse: a whole ellipse, three points: the centre, the radii (x = along the first axis,
// y = along the second) and the rotation of the first axis in radians (x; y unused). It starts
// and ends at the end of its first axis. A circle is an ellipse with equal radii and no rotation.
struct VRKDrawingStroke {
    enum class Kind : std::uint8_t { kPath, kEllipse };
    Kind kind = Kind::kPath;
    std::uint32_t pen = 0;  // index into VRKDrawing::pens
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

// A filled area: rings [firstRing, firstRing + ringCount) of VRKDrawing::ringSizes, their points
// one after the other from `first`. Curves are flattened. `rule` is the host's polygon fill
// rule: 0 even-odd, 1 non-zero.
//
// A filled whole ellipse (`ellipse` set) has no rings: its three points from `first` are those
// of an ellipse stroke (centre, radii, rotation), and it is drawn as a filled ellipse or circle.
struct VRKDrawingFill {
    VRKDrawingColor color;
    bool ellipse = false;
    int rule = 1;
    std::uint32_t first = 0;
    std::uint32_t firstRing = 0;
    std::uint32_t ringCount = 0;
};

// A line of text, drawn with DrawText at its anchor point with the attributes given.
struct VRKDrawingText {
    float x = 0.0f;
    float y = 0.0f;
    std::string utf8;
    VRKDrawingColor color;
    float size = 3.5f;       // millimetres
    float direction = 0.0f;  // degrees, counter-clockwise
    int font = 11;           // VRKPrintTextAttribute font values (VRKFontDefault ...)
    int weight = 25;         // VRKWeightNormal ...
    int anchor = 28;         // VRKAnchorBaseLeft ...
};

// An image with its top left corner at (x, y); its pixel size (VRKPixelImage::SetPixelSize)
// gives its size on the page.
struct VRKDrawingImage {
    float x = 0.0f;
    float y = 0.0f;
    VRKSmartRef<VRKPixelImage> image;
};

struct VRKDrawingItem {
    enum class Kind : std::uint8_t { kStroke, kFill, kText, kImage };
    Kind kind = Kind::kStroke;
    // A stroke that goes on from where the stroke before it ended, with the same pen: it is
    // drawn without lifting the pen (the pen-travel ordering joins strokes so).
    bool joined = false;
    std::uint32_t index = 0;  // into the vector of its kind
};

class VRKDrawing {
  public:
    // The page: the drawing's own size in millimetres.
    float width = 210.0f;
    float height = 297.0f;

    std::vector<VRKDrawingItem> items;
    std::vector<VRKDrawingStroke> strokes;
    std::vector<VRKDrawingFill> fills;
    std::vector<VRKDrawingText> texts;
    std::vector<VRKDrawingImage> images;
    std::vector<VRKDrawingPen> pens;

    std::vector<VRKDrawingPoint> points;
    // One flag a point: 1 for a control point of a cubic Bézier (strokes of kind kPath only).
    std::vector<std::uint8_t> controls;
    std::vector<std::uint32_t> ringSizes;

    // The index of `pen` in `pens`, added when new.
    std::uint32_t PenIndex(const VRKDrawingPen& pen);

    // Adders used by importers; each appends the item at the end of the drawing order.
    // A path stroke from `count` points starting at `xy` (x, y pairs) and their control flags
    // (null: all on the line).
    void AddPath(std::uint32_t pen, const VRKDrawingPoint* xy, const std::uint8_t* control,
                 std::uint32_t count);
    void AddEllipse(std::uint32_t pen, VRKDrawingPoint centre, float rx, float ry, float rotation);
    // A fill of `rings` rings whose sizes are `sizes` and whose points follow one another.
    void AddFill(VRKDrawingColor color, int rule, const std::vector<VRKDrawingPoint>& xy,
                 const std::vector<std::uint32_t>& sizes);
    void AddFilledEllipse(VRKDrawingColor color, VRKDrawingPoint centre, float rx, float ry,
                          float rotation);
    void AddText(VRKDrawingText text);
    void AddImage(VRKDrawingImage image);

    // Where a stroke starts and ends as drawn in its own direction.
    VRKDrawingPoint StrokeStart(const VRKDrawingStroke& stroke) const;
    VRKDrawingPoint StrokeEnd(const VRKDrawingStroke& stroke) const;
    // The stroke's length on the page (curves measured along their flattening).
    double StrokeLength(const VRKDrawingStroke& stroke) const;
    // Reverses a path stroke in place (its points and flags); an ellipse is left as it is.
    void ReverseStroke(const VRKDrawingStroke& stroke);
};
