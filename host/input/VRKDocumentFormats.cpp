#include "host/input/VRKDocumentFormats.h"

#include <algorithm>

#include "host/input/VRKJobDocumentReader.h"
#include "host/input/VRKPdfDocumentReader.h"
#include "host/input/VRKSvgDocumentReader.h"

const std::vector<VRKDocumentReader*>& VRKDocumentFormats::All() {
    static VRKJobDocumentReader job;
    static VRKSvgDocumentReader svg;
    static VRKPdfDocumentReader pdf;
    static const std::vector<VRKDocumentReader*> readers{&job, &svg, &pdf};
    return readers;
}

VRKDocumentReader* VRKDocumentFormats::Choose(const VRKDocumentInput& input, std::string& error) {
    for (VRKDocumentReader* reader : All()) {
        if (reader->Recognizes(input.GetHead())) {
            return reader;
        }
    }
    // A document whose start tells nothing (a job file opening with a very long comment, an SVG
    // file with a long preamble) goes by its name.
    const std::string extension = input.GetExtension();
    for (VRKDocumentReader* reader : All()) {
        const std::vector<std::string> extensions = reader->GetExtensions();
        if (!extension.empty() &&
            std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
            return reader;
        }
    }
    std::string names;
    for (const VRKDocumentReader* reader : All()) {
        names += (names.empty() ? "" : ", ") + std::string(reader->GetDescription());
    }
    error = input.GetName() + ": not a document this program reads (it reads " + names + ")";
    return nullptr;
}

std::string VRKDocumentFormats::Describe() {
    std::string text;
    for (const VRKDocumentReader* reader : All()) {
        text += "  ";
        text += reader->GetDescription();
        text += '\n';
    }
    return text;
}
