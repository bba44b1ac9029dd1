#include "host/drawing/VRKDrawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

double distance(VRKDrawingPoint a, VRKDrawingPoint b) {
    return std::hypot(double{b.x} - a.x, double{b.y} - a.y);
}

// The length of a cubic Bézier, from its control polygon and its chord: their mean is within a
// fraction of a percent of the arc length for the curves drawings hold, and costs no flattening.
double cubicLength(VRKDrawingPoint p0, VRKDrawingPoint c1, VRKDrawingPoint c2, VRKDrawingPoint p3) {
    const double chord = distance(p0, p3);
    const double polygon = distance(p0, c1) + distance(c1, c2) + distance(c2, p3);
    return (2.0 * chord + polygon) / 3.0;
}

// Ramanujan's approximation of an ellipse's perimeter.
double ellipseLength(double a, double b) {
    a = std::fabs(a);
    b = std::fabs(b);
    const double h = (a - b) * (a - b) / ((a + b) * (a + b) + 1e-300);
    return M_PI * (a + b) * (1.0 + 3.0 * h / (10.0 + std::sqrt(4.0 - 3.0 * h)));
}

}  // namespace

std::uint32_t VRKDrawing::PenIndex(const VRKDrawingPen& pen) {
    // Drawings have a handful of pens; the last one asked for is nearly always the one wanted.
    if (!pens.empty() && pens.back() == pen) {
        return static_cast<std::uint32_t>(pens.size() - 1);
    }
    const auto found = std::find(pens.begin(), pens.end(), pen);
    if (found != pens.end()) {
        return static_cast<std::uint32_t>(found - pens.begin());
    }
    pens.push_back(pen);
    return static_cast<std::uint32_t>(pens.size() - 1);
}

void VRKDrawing::AddPath(std::uint32_t pen, const VRKDrawingPoint* xy, const std::uint8_t* control,
                         std::uint32_t count) {
    VRKDrawingStroke stroke;
    stroke.kind = VRKDrawingStroke::Kind::kPath;
    stroke.pen = pen;
    stroke.first = static_cast<std::uint32_t>(points.size());
    stroke.count = count;
    points.insert(points.end(), xy, xy + count);
    if (control != nullptr) {
        controls.insert(controls.end(), control, control + count);
    } else {
        controls.insert(controls.end(), count, std::uint8_t{0});
    }
    items.push_back(
        {VRKDrawingItem::Kind::kStroke, false, static_cast<std::uint32_t>(strokes.size())});
    strokes.push_back(stroke);
}

void VRKDrawing::AddEllipse(std::uint32_t pen, VRKDrawingPoint centre, float rx, float ry,
                            float rotation) {
    VRKDrawingStroke stroke;
    stroke.kind = VRKDrawingStroke::Kind::kEllipse;
    stroke.pen = pen;
    stroke.first = static_cast<std::uint32_t>(points.size());
    stroke.count = 3;
    points.push_back(centre);
    points.push_back({rx, ry});
    points.push_back({rotation, 0.0f});
    controls.insert(controls.end(), 3, std::uint8_t{0});
    items.push_back(
        {VRKDrawingItem::Kind::kStroke, false, static_cast<std::uint32_t>(strokes.size())});
    strokes.push_back(stroke);
}

void VRKDrawing::AddFill(VRKDrawingColor color, int rule, const std::vector<VRKDrawingPoint>& xy,
                         const std::vector<std::uint32_t>& sizes) {
    VRKDrawingFill fill;
    fill.color = color;
    fill.rule = rule;
    fill.first = static_cast<std::uint32_t>(points.size());
    fill.firstRing = static_cast<std::uint32_t>(ringSizes.size());
    fill.ringCount = static_cast<std::uint32_t>(sizes.size());
    points.insert(points.end(), xy.begin(), xy.end());
    controls.insert(controls.end(), xy.size(), std::uint8_t{0});
    ringSizes.insert(ringSizes.end(), sizes.begin(), sizes.end());
    items.push_back({VRKDrawingItem::Kind::kFill, false, static_cast<std::uint32_t>(fills.size())});
    fills.push_back(fill);
}

void VRKDrawing::AddFilledEllipse(VRKDrawingColor color, VRKDrawingPoint centre, float rx, float ry,
                                  float rotation) {
    VRKDrawingFill fill;
    fill.color = color;
    fill.ellipse = true;
    fill.first = static_cast<std::uint32_t>(points.size());
    fill.firstRing = static_cast<std::uint32_t>(ringSizes.size());
    points.push_back(centre);
    points.push_back({rx, ry});
    points.push_back({rotation, 0.0f});
    controls.insert(controls.end(), 3, std::uint8_t{0});
    items.push_back({VRKDrawingItem::Kind::kFill, false, static_cast<std::uint32_t>(fills.size())});
    fills.push_back(fill);
}

void VRKDrawing::AddText(VRKDrawingText text) {
    items.push_back({VRKDrawingItem::Kind::kText, false, static_cast<std::uint32_t>(texts.size())});
    texts.push_back(std::move(text));
}

void VRKDrawing::AddImage(VRKDrawingImage image) {
    items.push_back(
        {VRKDrawingItem::Kind::kImage, false, static_cast<std::uint32_t>(images.size())});
    images.push_back(std::move(image));
}

VRKDrawingPoint VRKDrawing::StrokeStart(const VRKDrawingStroke& stroke) const {
    if (stroke.kind == VRKDrawingStroke::Kind::kEllipse) {
        const VRKDrawingPoint c = points[stroke.first];
        const float rx = points[stroke.first + 1].x;
        const float rotation = points[stroke.first + 2].x;
        return {static_cast<float>(c.x + rx * std::cos(double{rotation})),
                static_cast<float>(c.y + rx * std::sin(double{rotation}))};
    }
    return points[stroke.first];
}

VRKDrawingPoint VRKDrawing::StrokeEnd(const VRKDrawingStroke& stroke) const {
    if (stroke.kind == VRKDrawingStroke::Kind::kEllipse) {
        return StrokeStart(stroke);
    }
    return points[stroke.first + stroke.count - 1];
}

double VRKDrawing::StrokeLength(const VRKDrawingStroke& stroke) const {
    if (stroke.kind == VRKDrawingStroke::Kind::kEllipse) {
        const VRKDrawingPoint r = points[stroke.first + 1];
        return ellipseLength(r.x, r.y);
    }
    double length = 0.0;
    const std::uint32_t end = stroke.first + stroke.count;
    std::uint32_t i = stroke.first;
    while (i + 1 < end) {
        if (controls[i + 1] != 0 && i + 3 < end) {
            length += cubicLength(points[i], points[i + 1], points[i + 2], points[i + 3]);
            i += 3;
        } else {
            length += distance(points[i], points[i + 1]);
            i += 1;
        }
    }
    return length;
}

void VRKDrawing::ReverseStroke(const VRKDrawingStroke& stroke) {
    if (stroke.kind != VRKDrawingStroke::Kind::kPath || stroke.count < 2) {
        return;
    }
    std::reverse(points.begin() + stroke.first, points.begin() + stroke.first + stroke.count);
    std::reverse(controls.begin() + stroke.first, controls.begin() + stroke.first + stroke.count);
}
