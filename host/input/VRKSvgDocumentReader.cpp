#include "host/input/VRKSvgDocumentReader.h"

#include "host/svg/VRKSvgImporter.h"

bool VRKSvgDocumentReader::Recognizes(std::string_view head) const {
    return VRKSvgImporter::LooksLikeSvg(head);
}

bool VRKSvgDocumentReader::Import(VRKDocumentInput& input, VRKDrawing& drawing,
                                  VRKDocumentResult& result) {
    std::string text;
    if (!input.ReadAll(text, kMaxFileSize, result.error)) {
        return false;
    }
    VRKSvgImporter importer;
    // Linked images are taken from the drawing's folder; from standard input, from the current
    // one.
    const std::string folder = input.GetFolder().empty() ? std::string(".") : input.GetFolder();
    const bool read = importer.ReadMemory(text, input.GetName(), folder, drawing);
    result.warnings.insert(result.warnings.end(), importer.GetWarnings().begin(),
                           importer.GetWarnings().end());
    if (!read) {
        result.error = importer.GetError();
    }
    return read;
}
