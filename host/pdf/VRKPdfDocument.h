#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "host/pdf/VRKPdfRenderProcess.h"

// An open PDF document and the rendering of its pages as SVG text (through Poppler's GLib
// interface onto a cairo SVG surface in points). Internal to the PDF importer; errors are
// messages without the document's name. Never throws but for std::bad_alloc.
class VRKPdfDocument {
  public:
    VRKPdfDocument();
    ~VRKPdfDocument();
    VRKPdfDocument(const VRKPdfDocument&) = delete;
    VRKPdfDocument& operator=(const VRKPdfDocument&) = delete;

    // Bounds of the rendering of one page, which runs in a child process
    // (VRKPdfRenderProcess): how far its memory may grow, and its time.
    void SetLimits(std::size_t maxPageMemory, std::chrono::milliseconds maxPageTime);

    // Opens the document held in `data`, which must outlive this object. False with `error`
    // set: damaged, encrypted or not a PDF.
    bool Open(std::string_view data, std::string& error);
    int PageCount() const;
    // Renders page `index` (from 0) into `svg` (replaced), in a child process within the
    // bounds; the child goes on with the next page meanwhile, so pages asked for in order are
    // drawn while the last one is read. False with `error` set.
    bool RenderPage(int index, std::string& svg, std::string& error) const;

  private:
    struct Handle;
    std::size_t maxPageMemory_ = std::size_t{256} << 20;
    std::chrono::milliseconds maxPageTime_{5000};

    // Renders the page in this process.
    bool RenderPageHere(int index, std::string& svg, std::string& error) const;
    std::unique_ptr<Handle> handle_;
    // The child that draws the pages.
    std::unique_ptr<VRKPdfRenderProcess> process_;
};
