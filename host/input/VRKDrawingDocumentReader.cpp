#include "host/input/VRKDrawingDocumentReader.h"

#include <new>

#include "host/drawing/VRKDrawingOrder.h"
#include "host/drawing/VRKDrawingPlayer.h"
#include "host/drawing/VRKDrawingStats.h"

namespace {

VRKDocumentResult::Travel measure(const VRKDrawing& drawing) {
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    return {stats.penDown, stats.penUp, stats.penChanges};
}

}  // namespace

bool VRKDrawingDocumentReader::Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
                                    const VRKDocumentOptions& options, VRKDocumentResult& result) {
    try {
        VRKDrawing drawing;
        if (!Import(input, drawing, result)) {
            return false;
        }
        VRKPrintParameters params;
        VRKDrawingLayout::Placement placement;
        std::string error;
        if (!options.layout.Place(drawing.width, drawing.height, params, placement, error)) {
            result.error = input.GetName() + ": " + error;
            return false;
        }
        if (options.stats) {
            result.before = measure(drawing);
        }
        if (options.orderForTravel) {
            VRKDrawingOrder::Apply(drawing);
        }
        if (options.stats) {
            result.after = measure(drawing);
        }
        VRKDrawingPlayer player(generator, placement);
        player.Play(drawing, params);
        if (const int substituted = player.GetPalette().GetSubstitutedCount(); substituted > 0) {
            result.warnings.push_back(
                input.GetName() + ": the drawing has more colours than the plotter's palette of " +
                std::to_string(VRKDrawingPalette::kLastIndex - VRKDrawingPalette::kFirstIndex + 1) +
                "; " + std::to_string(substituted) +
                " of them are drawn in the nearest colour of the palette");
        }
        return true;
    } catch (const std::bad_alloc&) {
        result.error = input.GetName() + ": not enough memory for the drawing";
        return false;
    }
}
