#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// An open PDF document and the rendering of its pages as SVG text (through Poppler's GLib
// interface onto a cairo SVG surface in points). Internal to the PDF importer; errors are
// messages without the document's name. Never throws but for std::bad_alloc.
class VRKPdfDocument {
  public:
    VRKPdfDocument();
    ~VRKPdfDocument();
    VRKPdfDocument(const VRKPdfDocument&) = delete;
    VRKPdfDocument& operator=(const VRKPdfDocument&) = delete;

    // Bounds of the rendering of one page: the growth of the process's resident memory while
    // it is drawn, in bytes, and the time (VRKPdfPageWatch). Past either, RenderPage fails and
    // the document can draw no more pages.
    void SetLimits(std::size_t maxPageMemory, std::chrono::milliseconds maxPageTime);

    // Opens the document held in `data` (copied). False with `error` set: damaged, encrypted,
    // not a PDF, or no memory for the copy.
    bool Open(std::string_view data, std::string& error);
    int PageCount() const;
    // Renders page `index` (from 0) into `svg` (replaced). False with `error` set.
    bool RenderPage(int index, std::string& svg, std::string& error) const;

  private:
    struct Handle;
    std::size_t maxPageMemory_ = 0;
    std::chrono::milliseconds maxPageTime_{0};
    std::unique_ptr<Handle> handle_;
};
