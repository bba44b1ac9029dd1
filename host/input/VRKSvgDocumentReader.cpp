#include "host/input/VRKSvgDocumentReader.h"

#include <stdexcept>

#include "host/svg/VRKSvgImporter.h"

bool VRKSvgDocumentReader::Recognizes(std::string_view head) const {
    return VRKSvgImporter::LooksLikeSvg(head);
}

bool VRKSvgDocumentReader::Import(VRKDocumentInput& input, const PageSink& page,
                                  VRKDocumentResult& result) {
    VRKSvgImporter importer;
    VRKDrawing drawing;
    // Linked images are taken from the drawing's folder; from standard input, from the current
    // one.
    const std::string folder = input.GetFolder().empty() ? std::string(".") : input.GetFolder();
    // The document goes to the importer as it is read: its whole text is never held. A failed
    // read stops the importer, and the input's own message is the error.
    std::string readError;
    const auto piece = [&](char* data, std::size_t size) {
        const std::size_t count = input.Read(data, size, kMaxFileSize, readError);
        if (!readError.empty()) {
            throw std::runtime_error(readError);
        }
        return count;
    };
    const bool read = importer.ReadStream(piece, input.GetName(), folder, drawing);
    result.warnings.insert(result.warnings.end(), importer.GetWarnings().begin(),
                           importer.GetWarnings().end());
    if (!read) {
        result.error = readError.empty() ? importer.GetError() : readError;
        return false;
    }
    // An SVG document is one page.
    return page(drawing);
}
