// The shapes and their paint: basic shapes and paths become fills and strokes of the drawing.

#include <algorithm>
#include <cmath>

#include "host/svg/VRKSvgLength.h"
#include "host/svg/VRKSvgPath.h"
#include "host/svg/VRKSvgRenderer.h"
#include "host/svg/VRKSvgValueParser.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

std::uint8_t Blend(double component, double opacity) {
    // Over white: c = 255 - a (255 - c).
    const double value = 255.0 - opacity * (255.0 - component);
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

bool AllEqual(const std::vector<VRKDrawingPoint>& points) {
    return std::all_of(points.begin(), points.end(),
                       [&](const VRKDrawingPoint& p) { return p == points.front(); });
}

}  // namespace

void VRKSvgRenderer::Reserve(const VRKSvgNode& node, std::size_t points) {
    if (drawing_.points.size() + points > maxPoints_) {
        Fail(node, "the drawing has more than " + std::to_string(maxPoints_) + " points");
    }
}

void VRKSvgRenderer::Absurd(const VRKSvgNode& node) {
    Warn("absurd", node,
         "coordinates or sizes that are not numbers or lie beyond 10 km; the element is skipped");
}

// Maps the stroke's dashes to the nearest of the host's line styles: no dashes is solid; one
// dash a period is a dash, or a dot when the dash is no longer than the line is wide; two dashes
// a period is dash-dot; three or more, dash-dot-dot. The lengths of the dashes and gaps are not
// kept: the device draws its own pattern.
int VRKSvgRenderer::LineStyle(const std::vector<double>& dashes, double strokeWidth) {
    const std::size_t perPeriod = dashes.size() / 2;
    if (perPeriod == 0) {
        return VRKLineStyleSolid;
    }
    if (perPeriod == 1) {
        return dashes[0] <= strokeWidth ? VRKLineStyleDot : VRKLineStyleDash;
    }
    return perPeriod == 2 ? VRKLineStyleDashDot : VRKLineStyleDashDotDot;
}

bool VRKSvgRenderer::GradientColor(const VRKSvgNode& gradient, double& r, double& g, double& b,
                                   double& opacity) {
    // The stops are the gradient's own, or those of the gradient it refers to (a chain of a few
    // at most).
    const VRKSvgNode* source = &gradient;
    for (int hops = 0; source != nullptr && hops < 16; ++hops) {
        int count = 0;
        r = g = b = opacity = 0.0;
        for (const auto& child : source->children) {
            if (child->IsText() || child->name != "stop") {
                continue;
            }
            VRKDrawingColor color;
            double stopOpacity = 1.0;
            for (const auto& [name, value] : DeclarationsOf(*child)) {
                VRKDrawingColor parsed;
                if (name == "stop-color" && VRKSvgValueParser::ParseColor(value, parsed)) {
                    color = parsed;
                } else if (name == "stop-opacity") {
                    VRKSvgLength length;
                    if (VRKSvgLength::Parse(value, length) && std::isfinite(length.value)) {
                        stopOpacity = std::clamp(length.value, 0.0, 1.0);
                    }
                }
            }
            r += color.r;
            g += color.g;
            b += color.b;
            opacity += stopOpacity;
            ++count;
        }
        if (count > 0) {
            r /= count;
            g /= count;
            b /= count;
            opacity /= count;
            return true;
        }
        const std::string* link = source->Link();
        source = link != nullptr && link->size() > 1 && (*link)[0] == '#'
                     ? document_.FindId(link->substr(1))
                     : nullptr;
    }
    return false;
}

bool VRKSvgRenderer::Paint(const VRKSvgPaint& paint, double opacity, const VRKSvgNode& node,
                           const State& state, VRKDrawingColor& color) {
    double r = 0.0, g = 0.0, b = 0.0;
    VRKSvgPaint::Kind kind = paint.kind;
    VRKDrawingColor plain = paint.color;
    if (kind == VRKSvgPaint::Kind::kReference) {
        const VRKSvgNode* target =
            paint.localReference ? document_.FindId(paint.reference) : nullptr;
        if (target != nullptr &&
            (target->name == "linearGradient" || target->name == "radialGradient")) {
            double stopOpacity = 1.0;
            Warn("gradient", node, "gradients are drawn in the average colour of their stops");
            if (!GradientColor(*target, r, g, b, stopOpacity)) {
                return false;  // a gradient without stops paints nothing
            }
            color = {Blend(r, opacity * stopOpacity), Blend(g, opacity * stopOpacity),
                     Blend(b, opacity * stopOpacity)};
            return true;
        }
        if (target != nullptr && target->name == "pattern") {
            Warn("pattern", node,
                 "patterns are not supported; painted in the fallback colour when one is given, "
                 "else not painted");
        } else {
            Warn("missing-reference", node,
                 "refers to '" + paint.reference +
                     "', which is not a paint server of the file; drawn without it");
        }
        if (!paint.hasFallback) {
            return false;
        }
        kind = paint.fallback;
        plain = paint.fallbackColor;
    }
    if (kind == VRKSvgPaint::Kind::kNone) {
        return false;
    }
    if (kind == VRKSvgPaint::Kind::kCurrentColor) {
        plain = state.style.color;
    }
    color = {Blend(plain.r, opacity), Blend(plain.g, opacity), Blend(plain.b, opacity)};
    return true;
}

bool VRKSvgRenderer::StrokePen(const VRKSvgNode& node, const State& state, std::uint32_t& pen) {
    const VRKSvgStyle& style = state.style;
    if (!(style.strokeWidth > 0.0)) {
        return false;
    }
    VRKDrawingPen drawingPen;
    if (!Paint(style.stroke, style.opacity * style.strokeOpacity, node, state, drawingPen.color)) {
        return false;
    }
    const double width = style.strokeWidth * state.ctm.LengthScale();
    if (!std::isfinite(width) || width > kLimit) {
        Absurd(node);
        return false;
    }
    drawingPen.width = static_cast<float>(width);
    drawingPen.lineStyle = LineStyle(style.dashes, style.strokeWidth);
    drawingPen.cap = static_cast<VRKPrintLineAttribute>(style.cap);
    drawingPen.join = static_cast<VRKPrintLineAttribute>(style.join);
    pen = drawing_.PenIndex(drawingPen);
    return true;
}

void VRKSvgRenderer::DrawPath(VRKSvgPath& path, const VRKSvgNode& node, const State& state) {
    if (path.Subpaths().empty()) {
        return;
    }
    if (!state.ctm.IsFinite() || !path.Transform(state.ctm, kLimit)) {
        Absurd(node);
        return;
    }
    const VRKSvgStyle& style = state.style;
    VRKDrawingColor fillColor;
    if (Paint(style.fill, style.opacity * style.fillOpacity, node, state, fillColor)) {
        std::vector<VRKDrawingPoint> points;
        std::vector<std::uint32_t> sizes;
        const std::size_t room = maxPoints_ - std::min(maxPoints_, drawing_.points.size());
        if (!path.Rings(kTolerance, room, points, sizes)) {
            Reserve(node, maxPoints_ + 1);
        }
        if (!sizes.empty()) {
            drawing_.AddFill(fillColor, style.fillRule, points, sizes);
        }
    }
    std::uint32_t pen = 0;
    if (!StrokePen(node, state, pen)) {
        return;
    }
    std::vector<VRKDrawingPoint> points;
    std::vector<std::uint8_t> controls;
    for (const VRKSvgPath::Subpath& subpath : path.Subpaths()) {
        path.StrokePoints(subpath, points, controls);
        if (points.size() < 2 || AllEqual(points)) {
            continue;
        }
        Reserve(node, points.size());
        drawing_.AddPath(pen, points.data(), controls.data(),
                         static_cast<std::uint32_t>(points.size()));
    }
}

void VRKSvgRenderer::DrawEllipse(double cx, double cy, double rx, double ry, const VRKSvgNode& node,
                                 const State& state) {
    const VRKSvgMatrix& m = state.ctm;
    // The image of the ellipse is an ellipse: its axes are the singular vectors of the linear
    // part times the radii, found from the 2x2 matrix's decomposition into rotation, scale and
    // rotation.
    const double m00 = m.a * rx, m01 = m.c * ry, m10 = m.b * rx, m11 = m.d * ry;
    const double e = (m00 + m11) / 2.0, f = (m00 - m11) / 2.0;
    const double g = (m10 + m01) / 2.0, h = (m10 - m01) / 2.0;
    const double q = std::hypot(e, h), r = std::hypot(f, g);
    const double first = q + r;
    const double second = std::fabs(q - r);
    const double rotation = (std::atan2(h, e) + std::atan2(g, f)) / 2.0;
    const double x = m.X(cx, cy);
    const double y = m.Y(cx, cy);
    if (!std::isfinite(first) || !std::isfinite(rotation) || !std::isfinite(x) ||
        !std::isfinite(y) || first > kLimit || std::fabs(x) > kLimit || std::fabs(y) > kLimit) {
        Absurd(node);
        return;
    }
    if (!(second > first * 1e-12) || !(first > 0.0)) {
        return;  // flattened to a line or a point by the transform
    }
    const VRKDrawingPoint centre{static_cast<float>(x), static_cast<float>(y)};
    const float angle = static_cast<float>(std::remainder(rotation, 2.0 * kPi));
    const VRKSvgStyle& style = state.style;
    VRKDrawingColor fillColor;
    if (Paint(style.fill, style.opacity * style.fillOpacity, node, state, fillColor)) {
        Reserve(node, 3);
        drawing_.AddFilledEllipse(fillColor, centre, static_cast<float>(first),
                                  static_cast<float>(second), angle);
    }
    std::uint32_t pen = 0;
    if (StrokePen(node, state, pen)) {
        Reserve(node, 3);
        drawing_.AddEllipse(pen, centre, static_cast<float>(first), static_cast<float>(second),
                            angle);
    }
}

void VRKSvgRenderer::Shape(const VRKSvgNode& node, const State& state) {
    if (!state.style.visible) {
        return;
    }
    const std::string& name = node.name;
    VRKSvgPath path;
    if (name == "rect") {
        const double width = Length(node, "width", Axis::kX, state, 0.0);
        const double height = Length(node, "height", Axis::kY, state, 0.0);
        if (!(width > 0.0) || !(height > 0.0)) {
            return;
        }
        double rx = Length(node, "rx", Axis::kX, state, -1.0);
        double ry = Length(node, "ry", Axis::kY, state, -1.0);
        if (rx < 0.0) {
            rx = ry;
        }
        if (ry < 0.0) {
            ry = rx;
        }
        rx = std::clamp(rx, 0.0, width / 2.0);
        ry = std::clamp(ry, 0.0, height / 2.0);
        path.AddRect(Length(node, "x", Axis::kX, state, 0.0),
                     Length(node, "y", Axis::kY, state, 0.0), width, height, rx, ry);
    } else if (name == "circle" || name == "ellipse") {
        const double cx = Length(node, "cx", Axis::kX, state, 0.0);
        const double cy = Length(node, "cy", Axis::kY, state, 0.0);
        double rx = 0.0, ry = 0.0;
        if (name == "circle") {
            rx = ry = Length(node, "r", Axis::kDiagonal, state, 0.0);
        } else {
            rx = Length(node, "rx", Axis::kX, state, -1.0);
            ry = Length(node, "ry", Axis::kY, state, -1.0);
            rx = rx < 0.0 ? ry : rx;  // one radius given stands for both
            ry = ry < 0.0 ? rx : ry;
        }
        if (!(rx > 0.0) || !(ry > 0.0)) {
            return;
        }
        DrawEllipse(cx, cy, rx, ry, node, state);
        return;
    } else if (name == "line") {
        path.MoveTo(Length(node, "x1", Axis::kX, state, 0.0),
                    Length(node, "y1", Axis::kY, state, 0.0));
        path.LineTo(Length(node, "x2", Axis::kX, state, 0.0),
                    Length(node, "y2", Axis::kY, state, 0.0));
    } else if (name == "polyline" || name == "polygon") {
        const std::string* points = node.Attribute("points");
        const std::vector<double> values =
            points != nullptr ? VRKSvgLength::ParseList(*points) : std::vector<double>();
        if (values.size() < 4) {
            return;
        }
        path.MoveTo(values[0], values[1]);
        for (std::size_t i = 2; i + 1 < values.size(); i += 2) {
            path.LineTo(values[i], values[i + 1]);
        }
        if (name == "polygon") {
            path.Close();
        }
    } else {
        const std::string* data = node.Attribute("d");
        if (data == nullptr) {
            return;
        }
        if (!VRKSvgValueParser::ParsePath(*data, path)) {
            Warn("path-data", node, "path data with an error; drawn up to the error");
        }
    }
    Reserve(node, path.PointCount());
    DrawPath(path, node, state);
}
