#pragma once

#include <string>
#include <vector>

#include "host/drawing/VRKDrawing.h"
#include "host/svg/VRKSvgImporter.h"

// What the importer made of one document.
struct SvgResult {
    bool ok = false;
    VRKDrawing drawing;
    std::string error;
    std::vector<std::string> warnings;
};

inline SvgResult ReadSvg(const std::string& text, const std::string& baseFolder = "",
                         std::size_t maxPoints = VRKSvgImporter::kMaxPoints,
                         std::size_t maxElements = VRKSvgImporter::kMaxElements) {
    VRKSvgImporter importer;
    importer.SetLimits(maxPoints, maxElements);
    SvgResult result;
    result.ok = importer.ReadMemory(text, "test.svg", baseFolder, result.drawing);
    result.error = importer.GetError();
    result.warnings = importer.GetWarnings();
    return result;
}

// A document of 100 by 100 mm whose user unit is the millimetre: a point (x, y) of the file lies
// at (x, 100 - y) on the page.
inline std::string Page(const std::string& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='100mm' height='100mm' viewBox='0 0 100 100'>" +
           content + "</svg>";
}

inline std::vector<VRKDrawingPoint> Ring(const VRKDrawing& drawing, const VRKDrawingFill& fill,
                                         std::uint32_t ring) {
    std::uint32_t first = fill.first;
    for (std::uint32_t i = 0; i < ring; ++i) {
        first += drawing.ringSizes[fill.firstRing + i];
    }
    const std::uint32_t size = drawing.ringSizes[fill.firstRing + ring];
    return {drawing.points.begin() + first, drawing.points.begin() + first + size};
}

inline std::vector<VRKDrawingPoint> Points(const VRKDrawing& drawing,
                                           const VRKDrawingStroke& stroke) {
    return {drawing.points.begin() + stroke.first,
            drawing.points.begin() + stroke.first + stroke.count};
}

inline std::vector<std::uint8_t> Controls(const VRKDrawing& drawing,
                                          const VRKDrawingStroke& stroke) {
    return {drawing.controls.begin() + stroke.first,
            drawing.controls.begin() + stroke.first + stroke.count};
}

using Points_ = std::vector<VRKDrawingPoint>;
