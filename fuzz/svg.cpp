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

#include <cstdint>
#include <string>
#include <string_view>

#include "DrawingCheck.h"
#include "FuzzSupport.h"
#include "host/drawing/VRKDrawing.h"
#include "host/svg/VRKSvgImporter.h"

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
    vrkfuzz::CheckDrawing(drawing);
    return 0;
}
