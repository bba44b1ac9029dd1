#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/pdf/VRKPdfCharacter.h"

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
    // Text in a plain font drawn as labels (VRKPdfTextLabels applied to each page's SVG in the
    // child, from the page's characters) instead of outlines. Set before Open.
    void SetTextLabels(bool labels) { textLabels_ = labels; }

    // Opens the document held in `data`, which must outlive this object: a child process opens
    // it, says how many pages it has and goes on to draw them (Poppler may take memory on the
    // word of a damaged file while it mends it, so it opens the file in the child too). False
    // with `error` set: damaged, encrypted, not a PDF, or past the bounds.
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

    std::string_view data_;
    int pageCount_ = 0;

    // Starts a child that opens the document and draws the pages from `first`; its answer to
    // the opening, the page count, in `count`.
    bool StartChild(int first, std::string& count, std::string& error) const;
    // True for kDone; else false with the message for `outcome` (of the opening or a page).
    bool Answer(VRKPdfRenderProcess::Outcome outcome, bool opening, std::string& error) const;
    // In the child: opens the document, and renders a page.
    bool OpenHere(std::string_view data, std::string& error) const;
    bool RenderPageHere(int index, std::string& svg, std::string& error) const;
    // In the child: the text of page `index` character by character, in reading order
    // (replaced). Left empty when the page has no text or its text layer cannot be read
    // consistently.
    void PageCharacters(int index, std::vector<VRKPdfCharacter>& characters) const;
    bool textLabels_ = false;
    std::unique_ptr<Handle> handle_;
    // The child that draws the pages.
    std::unique_ptr<VRKPdfRenderProcess> process_;
};
