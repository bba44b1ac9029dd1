#include "host/core/VRKPrintGenerator.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "host/core/VRKFont.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintStream.h"
#include "host/core/VRKPropertyEditorEntry.h"
#include "host/core/VRKSaturatingTrunc.h"

VRK_DEFINE_CLASS(VRKPrintGenerator, VRKBaseUnknown, "VRKNull", "Print")
VRK_DEFINE_CLASS(VRKPrintFileGenerator, VRKPrintGenerator, "VRKNull", "Print")

namespace {

// Largest distance, in millimetres, that a flattened curve may keep from the true curve: one
// plotter unit.
constexpr double kFlatness = 0.025;

// Number of equal parameter steps that keep the chords of a curve within kFlatness of it, given
// a bound on the length of the curve's second derivative over the parameter range `span`. A chord
// over a parameter step h stays within h * h / 8 * |P''| of the curve.
int stepsFor(double secondDerivativeBound, double span) {
    if (!(secondDerivativeBound > 0.0) || !(span > 0.0)) {
        return 1;
    }
    const double steps = std::ceil(span * std::sqrt(secondDerivativeBound / (8.0 * kFlatness)));
    // A curve as large as a house still ends: cap the work at one million chords per segment.
    return VRKSaturatingTrunc<int>(std::clamp(steps, 1.0, 1.0e6));
}

}  // namespace

VRKPrintGenerator::VRKPrintGenerator(const VRKString& language) : language_(language) {}

VRKPrintGenerator::~VRKPrintGenerator() = default;

void VRKPrintGenerator::HookThrew() noexcept {
    try {
        ReportFailure();
    } catch (...) {
        failed_ = true;
    }
}

void VRKPrintGenerator::ReportFailure() {
    failed_ = true;
}

void VRKPrintFileGenerator::ReportFailure() {
    VRKPrintGenerator::ReportFailure();
    if (stream_ != nullptr) {
        stream_->SetFailed();
    }
}

void VRKPrintGenerator::Begin(const VRKPrintParameters& params) noexcept {
    Guard([&] {
        params_ = params;
        textAsGeometry_ = params.GetTextAsGeometry();
        DrvBegin(params_);
    });
}

void VRKPrintGenerator::End() noexcept {
    Guard([&] { DrvEnd(); });
}

void VRKPrintGenerator::StartNewPage() noexcept {
    Guard([&] { DrvFormFeed(); });
}

void VRKPrintGenerator::StartNewPage(const VRKPrintParameters& params) noexcept {
    Guard([&] {
        params_ = params;
        textAsGeometry_ = params.GetTextAsGeometry();
        DrvFormFeed();
    });
}

void VRKPrintGenerator::DrawPolyline(int count, const float* xy) noexcept {
    Guard([&] { DrvDrawPolyline(count, xy); });
}

void VRKPrintGenerator::DrawPolygon(int count, const float* xy) noexcept {
    Guard([&] { DrvDrawPolygon(count, xy); });
}

void VRKPrintGenerator::DrawPolyBezier(int count, const float* xy) noexcept {
    Guard([&] { DrvDrawPolyBezier(count, xy); });
}

void VRKPrintGenerator::DrawPolyQuadBezier(int count, const float* xy) noexcept {
    Guard([&] { DrvDrawPolyQuadBezier(count, xy); });
}

void VRKPrintGenerator::DrawArcEllipse(float cx, float cy, float rx, float ry, float start,
                                       float end, float rotation, int filled) noexcept {
    Guard([&] {
        ReturnFillColor();
        DrvDrawArcEllipse(cx, cy, rx, ry, start, end, rotation, filled);
    });
}

void VRKPrintGenerator::FillArea(int nbPolygons, const int* nbPoints,
                                 const float* points) noexcept {
    Guard([&] {
        ReturnFillColor();
        DrvFillArea(nbPolygons, nbPoints, points);
    });
}

void VRKPrintGenerator::DrawBitmap(float x, float y, int /*mode*/,
                                   const VRKPixelImage* image) noexcept {
    Guard([&] { DrvDrawBitmap(x, y, image); });
}

void VRKPrintGenerator::DrawText(float x, float y, const VRKUnicodeString& text) noexcept {
    Guard([&] { DrvDrawText(x, y, text); });
}

void VRKPrintGenerator::DefineColor(int index, float r, float g, float b) noexcept {
    Guard([&] { DrvDefineColor(index, r, g, b); });
}

void VRKPrintGenerator::SelectDrawColor(int index) noexcept {
    drawColor_ = index;
    fillSelectedLast_ = false;
    Guard([&] { DrvSelectDrawColor(index); });
}

void VRKPrintGenerator::SelectFillColor(int index) noexcept {
    fillColor_ = index;
    fillSelectedLast_ = true;
    fillColorLent_ = false;
    Guard([&] { DrvSelectFillColor(index); });
}

void VRKPrintGenerator::SetDrawWidth(float width) noexcept {
    Guard([&] { DrvSetDrawWidth(width); });
}

void VRKPrintGenerator::SetLineCap(VRKPrintLineAttribute cap) noexcept {
    Guard([&] { DrvSetLineCap(cap); });
}

void VRKPrintGenerator::SetLineJoin(VRKPrintLineAttribute join) noexcept {
    Guard([&] { DrvSetLineJoin(join); });
}

void VRKPrintGenerator::SetLineStyle(int style) noexcept {
    Guard([&] { DrvSetLineStyle(style); });
}

void VRKPrintGenerator::SetLineStyle(VRKPrintLineAttribute style, float length,
                                     const float* pattern) noexcept {
    Guard([&] { DrvSetLineStyle(style, length, pattern); });
}

void VRKPrintGenerator::SetTextAttribute(VRKPrintTextAttribute kind, float value) noexcept {
    Guard([&] { DrvSetTextAttribute(kind, value); });
}

void VRKPrintGenerator::SetPolygonFillRule(int rule) noexcept {
    Guard([&] { DrvSetPolygonFillRule(rule); });
}

void VRKPrintGenerator::SetFillMode(int mode) noexcept {
    Guard([&] { DrvSetFillMode(mode); });
}

void VRKPrintGenerator::GetPrintTextManagement(VRKFont* /*font*/, const VRKUnicodeString& /*text*/,
                                               VRKPrintTextSupport& support,
                                               VRKPrintTextClipping& clipping) {
    support = VRKTextSupportHostDraws;
    clipping = VRKTextClippingNone;
}

// ---- Default hooks ------------------------------------------------------------------------

VRKDlgDialog* VRKPrintGenerator::CreatePropertyEditor(VRKDlgDialog* parent) {
    const VRKPropertyEditorFactory factory = VRKFindPropertyEditor(GetMetaObject()->GetClassName());
    return factory != nullptr ? factory(parent, *this) : nullptr;
}

void VRKPrintGenerator::DrvBegin(const VRKPrintParameters& /*params*/) {}
void VRKPrintGenerator::DrvEnd() {}
void VRKPrintGenerator::DrvFormFeed() {}
void VRKPrintGenerator::DrvMoveTo(float /*x*/, float /*y*/) {}
void VRKPrintGenerator::DrvLineTo(float /*x*/, float /*y*/) {}

void VRKPrintGenerator::DrvDrawPolyline(int count, const float* xy) {
    if (count < 1 || xy == nullptr) {
        return;
    }
    DrvMoveTo(xy[0], xy[1]);
    for (int i = 1; i < count; ++i) {
        DrvLineTo(xy[2 * i], xy[2 * i + 1]);
    }
}

void VRKPrintGenerator::DrvDrawPolygon(int count, const float* xy) {
    if (count < 1 || xy == nullptr) {
        return;
    }
    DrvDrawPolyline(count, xy);
    if (count > 1) {
        DrvLineTo(xy[0], xy[1]);
    }
}

void VRKPrintGenerator::DrvDrawPolyBezier(int count, const float* xy) {
    if (count < 4 || xy == nullptr) {
        return;
    }
    DrvMoveTo(xy[0], xy[1]);
    for (int s = 0; s + 3 < count; s += 3) {
        const float* p = xy + 2 * s;
        // B''(t) = 6((1-t)(P0-2P1+P2) + t(P1-2P2+P3)), bounded by 6 times the larger of the two.
        const double ax = p[0] - 2.0 * p[2] + p[4], ay = p[1] - 2.0 * p[3] + p[5];
        const double bx = p[2] - 2.0 * p[4] + p[6], by = p[3] - 2.0 * p[5] + p[7];
        const int n = stepsFor(6.0 * std::max(std::hypot(ax, ay), std::hypot(bx, by)), 1.0);
        for (int i = 1; i <= n; ++i) {
            const double t = static_cast<double>(i) / n, u = 1.0 - t;
            const double b0 = u * u * u, b1 = 3 * u * u * t, b2 = 3 * u * t * t, b3 = t * t * t;
            DrvLineTo(static_cast<float>(b0 * p[0] + b1 * p[2] + b2 * p[4] + b3 * p[6]),
                      static_cast<float>(b0 * p[1] + b1 * p[3] + b2 * p[5] + b3 * p[7]));
        }
    }
}

void VRKPrintGenerator::DrvDrawPolyQuadBezier(int count, const float* xy) {
    if (count < 3 || xy == nullptr) {
        return;
    }
    DrvMoveTo(xy[0], xy[1]);
    for (int s = 0; s + 2 < count; s += 2) {
        const float* p = xy + 2 * s;
        // B''(t) = 2(P0-2P1+P2), constant.
        const double ax = p[0] - 2.0 * p[2] + p[4], ay = p[1] - 2.0 * p[3] + p[5];
        const int n = stepsFor(2.0 * std::hypot(ax, ay), 1.0);
        for (int i = 1; i <= n; ++i) {
            const double t = static_cast<double>(i) / n, u = 1.0 - t;
            DrvLineTo(static_cast<float>(u * u * p[0] + 2 * u * t * p[2] + t * t * p[4]),
                      static_cast<float>(u * u * p[1] + 2 * u * t * p[3] + t * t * p[5]));
        }
    }
}

void VRKPrintGenerator::DrvDrawArcCircle(float cx, float cy, float radius, float start, float end,
                                         int filled) {
    VRKPrintGenerator::DrvDrawArcEllipse(cx, cy, radius, radius, start, end, 0.0f, filled);
}

void VRKPrintGenerator::DrvDrawArcEllipse(float cx, float cy, float rx, float ry, float start,
                                          float end, float rotation, int filled) {
    if (!(rx > 0.0f) && !(ry > 0.0f)) {
        return;
    }
    double from = start, to = end;
    if (from > to) {
        to += 2.0 * std::numbers::pi;
    }
    double sweep = std::min(to - from, 2.0 * std::numbers::pi);
    const bool full = sweep >= 2.0 * std::numbers::pi;
    FlattenEllipse(cx, cy, std::max(rx, 0.0f), std::max(ry, 0.0f), from, sweep, rotation,
                   filled != 0, !full);
}

void VRKPrintGenerator::FlattenEllipse(float cx, float cy, float rx, float ry, double start,
                                       double sweep, float rotation, bool asPolygon, bool sector) {
    // P''(t) of (rx cos t, ry sin t) is bounded by the larger radius.
    const int n = stepsFor(std::max(rx, ry), sweep);
    const double c = std::cos(rotation), s = std::sin(rotation);
    auto point = [&](double t, float& x, float& y) {
        const double ex = rx * std::cos(t), ey = ry * std::sin(t);
        x = static_cast<float>(cx + ex * c - ey * s);
        y = static_cast<float>(cy + ex * s + ey * c);
    };
    if (!asPolygon) {
        float x, y;
        point(start, x, y);
        DrvMoveTo(x, y);
        for (int i = 1; i <= n; ++i) {
            point(start + sweep * i / n, x, y);
            DrvLineTo(x, y);
        }
        return;
    }
    std::vector<float> xy;
    xy.reserve(2 * static_cast<std::size_t>(n) + 4);
    if (sector) {
        xy.push_back(cx);
        xy.push_back(cy);
    }
    const int last = sector ? n : n - 1;  // a full ellipse does not repeat its first point
    for (int i = 0; i <= last; ++i) {
        float x, y;
        point(start + sweep * i / n, x, y);
        xy.push_back(x);
        xy.push_back(y);
    }
    const int count = static_cast<int>(xy.size() / 2);
    DrvFillArea(1, &count, xy.data());
}

void VRKPrintGenerator::DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) {
    FillPatternPolygon(nbPolygons, nbPoints, points);
}

void VRKPrintGenerator::DrvDrawBitmap(float /*x*/, float /*y*/, const VRKPixelImage* /*image*/) {}

void VRKPrintGenerator::DrvDefineColor(int /*index*/, float /*r*/, float /*g*/, float /*b*/) {}
void VRKPrintGenerator::DrvSelectDrawColor(int /*index*/) {}
void VRKPrintGenerator::DrvSelectFillColor(int /*index*/) {}
void VRKPrintGenerator::DrvSetDrawWidth(float /*width*/) {}
void VRKPrintGenerator::DrvSetLineCap(VRKPrintLineAttribute /*cap*/) {}
void VRKPrintGenerator::DrvSetLineJoin(VRKPrintLineAttribute /*join*/) {}
void VRKPrintGenerator::DrvSetLineStyle(int /*style*/) {}
void VRKPrintGenerator::DrvSetLineStyle(VRKPrintLineAttribute /*style*/, float /*length*/,
                                        const float* /*pattern*/) {}

void VRKPrintGenerator::DrvSetTextAttribute(VRKPrintTextAttribute kind, float value) {
    // Enumeration values as ints: one beyond the int is held at its limit (naming nothing, as
    // any other unknown value), NaN gives 0.
    switch (kind) {
        case VRKTextFont:
            textFont_ = VRKSaturatingTrunc<int>(value);
            break;
        case VRKTextSize:
            textSize_ = value;
            break;
        case VRKTextWeight:
            textWeight_ = VRKSaturatingTrunc<int>(value);
            break;
        case VRKTextSlant:
            textSlant_ = value;
            break;
        case VRKTextDirection:
            textDirection_ = value;
            break;
        case VRKTextAnchor:
            textAnchor_ = VRKSaturatingTrunc<int>(value);
            break;
        default:
            break;
    }
}

void VRKPrintGenerator::DrvSetPolygonFillRule(int rule) {
    fillRule_ = rule;
}
void VRKPrintGenerator::DrvSetFillMode(int mode) {
    fillMode_ = mode;
}
