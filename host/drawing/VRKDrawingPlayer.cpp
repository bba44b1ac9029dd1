#include "host/drawing/VRKDrawingPlayer.h"

#include <numbers>

#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKPrintTextAttribute.h"
#include "host/core/VRKUnicodeString.h"

namespace {

constexpr float kFullTurn = static_cast<float>(2.0 * std::numbers::pi);

}  // namespace

void VRKDrawingPlayer::Play(const VRKDrawing& drawing, const VRKPrintParameters& params) {
    generator_.Begin(params);
    PlayItems(drawing);
    generator_.End();
}

void VRKDrawingPlayer::PlayItems(const VRKDrawing& drawing) {
    for (const VRKDrawingItem& item : drawing.items) {
        switch (item.kind) {
            case VRKDrawingItem::Kind::kStroke:
                PlayStroke(drawing, item);
                break;
            case VRKDrawingItem::Kind::kFill:
                PlayFill(drawing, drawing.fills[item.index]);
                break;
            case VRKDrawingItem::Kind::kText:
                PlayText(drawing.texts[item.index]);
                break;
            case VRKDrawingItem::Kind::kImage:
                PlayImage(drawing.images[item.index]);
                break;
        }
    }
}

void VRKDrawingPlayer::SelectDrawColor(const VRKDrawingColor& color) {
    const int index = palette_.Index(color, generator_);
    if (index != given_.drawColor) {
        generator_.SelectDrawColor(index);
        given_.drawColor = index;
    }
}

void VRKDrawingPlayer::SelectPen(const VRKDrawingPen& pen) {
    SelectDrawColor(pen.color);
    const float width = pen.width * placement_.scale;
    if (width != given_.width) {
        generator_.SetDrawWidth(width);
        given_.width = width;
    }
    if (pen.lineStyle != given_.lineStyle) {
        generator_.SetLineStyle(pen.lineStyle);
        given_.lineStyle = pen.lineStyle;
    }
    if (pen.cap != given_.cap) {
        generator_.SetLineCap(pen.cap);
        given_.cap = pen.cap;
    }
    if (pen.join != given_.join) {
        generator_.SetLineJoin(pen.join);
        given_.join = pen.join;
    }
}

void VRKDrawingPlayer::PlayEllipse(const VRKDrawing& drawing, std::uint32_t first, int filled) {
    const VRKDrawingPoint centre = drawing.points[first];
    const float rx = drawing.points[first + 1].x * placement_.scale;
    const float ry = drawing.points[first + 1].y * placement_.scale;
    const float rotation = drawing.points[first + 2].x;
    if (rx == ry && rotation == 0.0f) {
        generator_.DrawArcCircle(X(centre.x), Y(centre.y), rx, 0.0f, kFullTurn, filled);
    } else {
        generator_.DrawArcEllipse(X(centre.x), Y(centre.y), rx, ry, 0.0f, kFullTurn, rotation,
                                  filled);
    }
}

void VRKDrawingPlayer::PlayStroke(const VRKDrawing& drawing, const VRKDrawingItem& item) {
    const VRKDrawingStroke& stroke = drawing.strokes[item.index];
    SelectPen(drawing.pens[stroke.pen]);
    if (stroke.kind == VRKDrawingStroke::Kind::kEllipse) {
        PlayEllipse(drawing, stroke.first, 0);
        return;
    }
    const VRKDrawingPoint* p = drawing.points.data() + stroke.first;
    const std::uint8_t* control = drawing.controls.data() + stroke.first;
    const std::uint32_t count = stroke.count;
    if (count == 0) {
        return;
    }
    if (!item.joined) {
        generator_.MoveTo(X(p[0].x), Y(p[0].y));
    }
    std::uint32_t i = 0;
    while (i + 1 < count) {
        if (control[i + 1] == 0 || i + 3 >= count) {
            generator_.LineTo(X(p[i + 1].x), Y(p[i + 1].y));
            ++i;
            continue;
        }
        // A run of cubics: the current point and three points a curve.
        xy_.clear();
        xy_.push_back(X(p[i].x));
        xy_.push_back(Y(p[i].y));
        while (i + 3 < count && control[i + 1] != 0) {
            for (std::uint32_t k = 1; k <= 3; ++k) {
                xy_.push_back(X(p[i + k].x));
                xy_.push_back(Y(p[i + k].y));
            }
            i += 3;
        }
        generator_.DrawPolyBezier(static_cast<int>(xy_.size() / 2), xy_.data());
    }
}

void VRKDrawingPlayer::PlayFill(const VRKDrawing& drawing, const VRKDrawingFill& fill) {
    const int index = palette_.Index(fill.color, generator_);
    if (index != given_.fillColor) {
        generator_.SelectFillColor(index);
        given_.fillColor = index;
    }
    if (fill.ellipse) {
        PlayEllipse(drawing, fill.first, 1);
        return;
    }
    if (fill.rule != given_.fillRule) {
        generator_.SetPolygonFillRule(fill.rule);
        given_.fillRule = fill.rule;
    }
    sizes_.clear();
    xy_.clear();
    std::uint32_t point = fill.first;
    for (std::uint32_t r = 0; r < fill.ringCount; ++r) {
        const std::uint32_t size = drawing.ringSizes[fill.firstRing + r];
        sizes_.push_back(static_cast<int>(size));
        for (std::uint32_t k = 0; k < size; ++k, ++point) {
            xy_.push_back(X(drawing.points[point].x));
            xy_.push_back(Y(drawing.points[point].y));
        }
    }
    if (!sizes_.empty()) {
        generator_.FillArea(static_cast<int>(sizes_.size()), sizes_.data(), xy_.data());
    }
}

void VRKDrawingPlayer::SetText(int kind, float value, float& current) {
    if (value != current) {
        generator_.SetTextAttribute(static_cast<VRKPrintTextAttribute>(kind), value);
        current = value;
    }
}

void VRKDrawingPlayer::PlayText(const VRKDrawingText& text) {
    SelectDrawColor(text.color);
    SetText(VRKTextFont, static_cast<float>(text.font), given_.textFont);
    SetText(VRKTextWeight, static_cast<float>(text.weight), given_.textWeight);
    SetText(VRKTextSize, text.size * placement_.scale, given_.textSize);
    SetText(VRKTextDirection, text.direction, given_.textDirection);
    SetText(VRKTextAnchor, static_cast<float>(text.anchor), given_.textAnchor);
    generator_.DrawText(X(text.x), Y(text.y), VRKUnicodeString(text.utf8));
}

void VRKDrawingPlayer::PlayImage(const VRKDrawingImage& image) {
    VRKPixelImage* pixels = image.image.get();
    if (pixels == nullptr) {
        return;
    }
    const float pw = pixels->GetPixelWidth();
    const float ph = pixels->GetPixelHeight();
    if (placement_.scale != 1.0f) {
        pixels->SetPixelSize(pw * placement_.scale, ph * placement_.scale);
    }
    generator_.DrawBitmap(X(image.x), Y(image.y), 0, pixels);
    if (placement_.scale != 1.0f) {
        pixels->SetPixelSize(pw, ph);
    }
}
