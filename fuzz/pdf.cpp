// Fuzz target: the PDF importer.
//
// Feeds: the input is a PDF document read by VRKPdfImporter::ReadMemory into one drawing a page,
// its text as labels when the input's size is odd.
// Poppler parses the document, then renders each page through cairo into SVG text in a child
// process (bounded here to 128 MiB and a quarter of a second a page), which the SVG importer
// reads. Poppler, GLib and cairo are not instrumented, so the coverage that guides the run is that
// of our own code (the importer, the SVG reader and the page's drawing).
//
// Checks: no crash, leak, undefined behaviour, hang or runaway allocation on any document; a
// refused document has a message naming it and leaves no pages; every page read holds only
// finite coordinates within 10^7 mm, and every item, stroke, fill and ring refers to points and
// pens that are there.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "DrawingCheck.h"
#include "FuzzSupport.h"
#include "host/drawing/VRKDrawing.h"
#include "host/pdf/VRKPdfImporter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    VRKPdfImporter::LooksLikePdf(bytes);
    VRKPdfImporter importer;
    // Each page is drawn in a child process; bounds far below the reader's own keep a document
    // of many slow pages within the run's time limit for one input (10 s). They are checked the
    // same way whatever their values.
    importer.SetLimits(std::size_t{128} << 20, std::chrono::milliseconds(250));
    // Documents of an odd number of bytes have their text drawn as labels, the others as
    // outlines: both ways are fuzzed without a byte of the input spent on choosing.
    importer.SetTextLabels(size % 2 == 1);
    std::vector<VRKDrawing> pages;
    if (!importer.ReadMemory(bytes, "fuzz.pdf", pages)) {
        if (importer.GetError().rfind("fuzz.pdf: ", 0) != 0) {
            vrkfuzz::Broken("a refused document without a message naming it: " +
                            importer.GetError());
        }
        if (!pages.empty()) {
            vrkfuzz::Broken("a refused document left pages behind");
        }
        return 0;
    }
    if (pages.empty() || pages.size() > static_cast<std::size_t>(VRKPdfImporter::kMaxPages)) {
        vrkfuzz::Broken("a document read with no pages or more than the bound");
    }
    for (const VRKDrawing& page : pages) {
        vrkfuzz::CheckDrawing(page);
    }
    for (const std::string& warning : importer.GetWarnings()) {
        if (warning.rfind("fuzz.pdf: page ", 0) != 0) {
            vrkfuzz::Broken("a warning that does not name its page: " + warning);
        }
    }
    return 0;
}
