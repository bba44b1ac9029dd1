#include "host/input/VRKDrawingDocumentReader.h"

#include <new>

#include "host/core/VRKPrintGenerator.h"
#include "host/drawing/VRKDrawingOrder.h"
#include "host/drawing/VRKDrawingPlayer.h"
#include "host/drawing/VRKDrawingStats.h"

namespace {

void add(std::optional<VRKDocumentResult::Travel>& total, const VRKDrawing& drawing) {
    const VRKDrawingStats stats = VRKDrawingStats::Measure(drawing);
    if (!total.has_value()) {
        total.emplace();
    }
    total->penDown += stats.penDown;
    total->penUp += stats.penUp;
    total->penChanges += stats.penChanges;
}

}  // namespace

bool VRKDrawingDocumentReader::Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
                                    const VRKDocumentOptions& options, VRKDocumentResult& result) {
    try {
        VRKDrawingPlayer player(generator, {});
        int pages = 0;
        const PageSink page = [&](VRKDrawing& drawing) {
            VRKPrintParameters params;
            VRKDrawingLayout::Placement placement;
            std::string error;
            if (!options.layout.Place(drawing.width, drawing.height, params, placement, error)) {
                result.error = input.GetName() + ": " + error;
                return false;
            }
            if (options.stats) {
                add(result.before, drawing);
            }
            if (options.orderForTravel) {
                VRKDrawingOrder::Apply(drawing);
            }
            if (options.stats) {
                add(result.after, drawing);
            }
            if (pages == 0) {
                generator.Begin(params);
            } else {
                generator.StartNewPage(params);
                // A new page may start the plotter's state afresh: pens and line attributes are
                // selected again; the palette's colours stay defined for the whole job.
                player.ForgetSelections();
            }
            ++pages;
            player.SetPlacement(placement);
            player.PlayItems(drawing);
            return true;
        };
        if (!Import(input, page, result)) {
            return false;
        }
        if (pages == 0) {
            result.error = input.GetName() + ": the document has no pages";
            return false;
        }
        generator.End();
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
