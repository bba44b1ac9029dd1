#include "host/pdf/VRKPdfImporter.h"

#include <cctype>
#include <exception>
#include <new>
#include <set>
#include <string>
#include <utility>

#include "host/pdf/VRKPdfDocument.h"
#include "host/svg/VRKSvgImporter.h"

bool VRKPdfImporter::LooksLikePdf(std::string_view head) {
    // The marker may start anywhere in the first 1024 bytes (npos, not found, is never less).
    return head.substr(0, 1024 + 4).find("%PDF-") < 1024;
}

bool VRKPdfImporter::ReadMemory(std::string_view data, const std::string& name,
                                std::vector<VRKDrawing>& pages) {
    error_.clear();
    warnings_.clear();
    bool read = false;
    try {
        read = Read(data, name, pages);
    } catch (const std::bad_alloc&) {
        error_ = name + ": not enough memory to read the document";
    } catch (const std::exception& exception) {
        error_ = name + ": " + exception.what();
    }
    if (!read) {
        pages.clear();
        pages.shrink_to_fit();
    }
    return read;
}

bool VRKPdfImporter::Read(std::string_view data, const std::string& name,
                          std::vector<VRKDrawing>& pages) {
    pages.clear();
    if (data.size() > kMaxFileBytes) {
        error_ = name + ": the file is larger than 1 GiB, too large to be a PDF document";
        return false;
    }
    if (!LooksLikePdf(data)) {
        error_ = name + ": the file is not a PDF document (no %PDF- header)";
        return false;
    }
    VRKPdfDocument document;
    document.SetLimits(maxPageMemory_, maxPageTime_);
    document.SetTextLabels(textLabels_);
    std::string error;
    if (!document.Open(data, error)) {
        error_ = name + ": " + error;
        return false;
    }
    const int count = document.PageCount();
    if (count <= 0) {
        error_ = name + ": the document has no pages";
        return false;
    }
    if (count > kMaxPages) {
        error_ = name + ": the document has " + std::to_string(count) + " pages, more than " +
                 std::to_string(kMaxPages);
        return false;
    }
    // Each kind of warning once, whichever page meets it first.
    std::set<std::string> kinds;
    std::string svg;
    pages.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        const std::string pageName = name + ": page " + std::to_string(index + 1);
        if (!document.RenderPage(index, svg, error)) {
            error_ = pageName + ": " + error;
            return false;
        }
        const std::string svgName = pageName + ".svg";
        VRKSvgImporter importer;
        VRKDrawing drawing;
        if (!importer.ReadMemory(svg, svgName, "", drawing)) {
            error_ = PageMessage(importer.GetError(), svgName, pageName);
            return false;
        }
        for (const std::string& warning : importer.GetWarnings()) {
            const std::string message = PageMessage(warning, svgName, pageName);
            if (kinds.insert(message.substr(pageName.size())).second) {
                warnings_.push_back(message);
            }
        }
        pages.push_back(std::move(drawing));
    }
    return true;
}

std::string VRKPdfImporter::PageMessage(const std::string& message, const std::string& svgName,
                                        const std::string& pageName) {
    if (message.compare(0, svgName.size(), svgName) != 0) {
        return message;
    }
    std::size_t at = svgName.size();
    if (at < message.size() && message[at] == ':') {
        ++at;
        std::size_t digits = at;
        while (digits < message.size() &&
               std::isdigit(static_cast<unsigned char>(message[digits]))) {
            ++digits;
        }
        if (digits > at && digits < message.size() && message[digits] == ':') {
            at = digits + 1;
        }
    }
    while (at < message.size() && message[at] == ' ') {
        ++at;
    }
    return pageName + ": " + message.substr(at);
}
