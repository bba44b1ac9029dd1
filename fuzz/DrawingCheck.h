#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "FuzzSupport.h"
#include "host/drawing/VRKDrawing.h"

// The checks of a drawing that the readers of drawings (SVG, PDF) share: a drawing that was read
// holds only finite coordinates within 10^7 mm, and every item, stroke, fill and ring refers to
// points and pens that are there.
namespace vrkfuzz {

constexpr float kBound = 1.0e7f;

inline bool Good(float value) {
    return std::isfinite(value) && std::fabs(value) <= kBound;
}

inline void CheckDrawing(const VRKDrawing& drawing) {
    const std::size_t points = drawing.points.size();
    if (drawing.controls.size() != points) {
        Broken("control flags and points differ in number");
    }
    for (const VRKDrawingPoint& p : drawing.points) {
        if (!Good(p.x) || !Good(p.y)) {
            Broken("a point that is not finite or out of bounds");
        }
    }
    for (const VRKDrawingStroke& stroke : drawing.strokes) {
        if (stroke.pen >= drawing.pens.size() ||
            stroke.first + std::size_t{stroke.count} > points || stroke.count < 2) {
            Broken("a stroke that refers past its points or pens");
        }
    }
    std::size_t ringsSeen = 0;
    for (const VRKDrawingFill& fill : drawing.fills) {
        std::size_t size = fill.ellipse ? 3 : 0;
        for (std::uint32_t i = 0; i < fill.ringCount; ++i) {
            size += drawing.ringSizes.at(fill.firstRing + i);
        }
        ringsSeen += fill.ringCount;
        if (fill.first + size > points || (!fill.ellipse && fill.ringCount == 0)) {
            Broken("a fill that refers past its points");
        }
    }
    if (ringsSeen != drawing.ringSizes.size()) {
        Broken("rings that no fill holds");
    }
    for (const VRKDrawingText& text : drawing.texts) {
        if (!Good(text.x) || !Good(text.y) || !Good(text.size) || !std::isfinite(text.direction)) {
            Broken("a text with a position or size that is not finite");
        }
    }
    for (const VRKDrawingImage& image : drawing.images) {
        if (!image.image || !Good(image.x) || !Good(image.y)) {
            Broken("an image without pixels or with a bad position");
        }
    }
    if (drawing.items.size() != drawing.strokes.size() + drawing.fills.size() +
                                    drawing.texts.size() + drawing.images.size()) {
        Broken("items and the drawing's parts differ in number");
    }
    if (!Good(drawing.width) || !Good(drawing.height) || !(drawing.width > 0.0f) ||
        !(drawing.height > 0.0f)) {
        Broken("a page size that is not positive and finite");
    }
}

}  // namespace vrkfuzz
