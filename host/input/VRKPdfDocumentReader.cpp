#include "host/input/VRKPdfDocumentReader.h"

#include "host/pdf/VRKPdfImporter.h"

bool VRKPdfDocumentReader::Recognizes(std::string_view head) const {
    return VRKPdfImporter::LooksLikePdf(head);
}

bool VRKPdfDocumentReader::Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
                                const VRKDocumentOptions& options, VRKDocumentResult& result) {
    textLabels_ = options.textLabels;
    return VRKDrawingDocumentReader::Play(input, generator, options, result);
}

bool VRKPdfDocumentReader::Import(VRKDocumentInput& input, const PageSink& page,
                                  VRKDocumentResult& result) {
    // A PDF is read from its end (the cross-reference table), so the whole file is held.
    std::string data;
    if (!input.ReadAll(data, VRKPdfImporter::kMaxFileBytes, result.error)) {
        return false;
    }
    VRKPdfImporter importer;
    importer.SetTextLabels(textLabels_);
    std::vector<VRKDrawing> pages;
    const bool read = importer.ReadMemory(data, input.GetName(), pages);
    result.warnings.insert(result.warnings.end(), importer.GetWarnings().begin(),
                           importer.GetWarnings().end());
    if (!read) {
        result.error = importer.GetError();
        return false;
    }
    for (VRKDrawing& drawing : pages) {
        if (!page(drawing)) {
            return false;
        }
    }
    return true;
}
