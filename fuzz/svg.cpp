// Fuzz target: the SVG importer.
//
// Feeds: the input is an SVG document read by VRKSvgImporter::ReadMemory into a drawing, with
// bounds of a million points and 200000 elements; linked images are looked for in examples/images,
// and in no other folder.
//
// Checks: no crash, leak, undefined behaviour, hang or runaway allocation on any document; a
// refused document has a message naming it and leaves the drawing empty; a drawing that was read
// holds only finite coordinates within the importer's bounds, and every item, stroke, fill and
// ring refers to points that are there.

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "FuzzSupport.h"
#include "host/drawing/VRKDrawing.h"
#include "host/svg/VRKSvgImporter.h"

namespace {

constexpr float kBound = 1.0e7f;

bool Good(float value) {
    return std::isfinite(value) && std::fabs(value) <= kBound;
}

void CheckDrawing(const VRKDrawing& drawing) {
    const std::size_t points = drawing.points.size();
    if (drawing.controls.size() != points) {
        vrkfuzz::Broken("control flags and points differ in number");
    }
    for (const VRKDrawingPoint& p : drawing.points) {
        if (!Good(p.x) || !Good(p.y)) {
            vrkfuzz::Broken("a point that is not finite or out of bounds");
        }
    }
    for (const VRKDrawingStroke& stroke : drawing.strokes) {
        if (stroke.pen >= drawing.pens.size() ||
            stroke.first + std::size_t{stroke.count} > points || stroke.count < 2) {
            vrkfuzz::Broken("a stroke that refers past its points or pens");
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
            vrkfuzz::Broken("a fill that refers past its points");
        }
    }
    if (ringsSeen != drawing.ringSizes.size()) {
        vrkfuzz::Broken("rings that no fill holds");
    }
    for (const VRKDrawingText& text : drawing.texts) {
        if (!Good(text.x) || !Good(text.y) || !Good(text.size) || !std::isfinite(text.direction)) {
            vrkfuzz::Broken("a text with a position or size that is not finite");
        }
    }
    for (const VRKDrawingImage& image : drawing.images) {
        if (!image.image || !Good(image.x) || !Good(image.y)) {
            vrkfuzz::Broken("an image without pixels or with a bad position");
        }
    }
    if (drawing.items.size() != drawing.strokes.size() + drawing.fills.size() +
                                    drawing.texts.size() + drawing.images.size()) {
        vrkfuzz::Broken("items and the drawing's parts differ in number");
    }
    if (!Good(drawing.width) || !Good(drawing.height) || !(drawing.width > 0.0f) ||
        !(drawing.height > 0.0f)) {
        vrkfuzz::Broken("a page size that is not positive and finite");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    VRKSvgImporter importer;
    // Bounds lowered so that a drawing stays within the run's allocation limit (64 MiB at once):
    // the points array of the full bound would take 160 MiB. The bounds are checked the same way
    // whatever their values.
    importer.SetLimits(1000000, 200000);
    VRKDrawing drawing;
    VRKSvgImporter::LooksLikeSvg(text);
    if (!importer.ReadMemory(text, "fuzz.svg", VRK_FUZZ_IMAGES_DIR, drawing)) {
        if (importer.GetError().rfind("fuzz.svg", 0) != 0) {
            vrkfuzz::Broken("a refused document without a message naming it: " +
                            importer.GetError());
        }
        if (!drawing.items.empty() || !drawing.points.empty()) {
            vrkfuzz::Broken("a refused document left a drawing behind");
        }
        return 0;
    }
    CheckDrawing(drawing);
    return 0;
}
