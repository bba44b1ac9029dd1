#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/pdf/VRKPdfCharacter.h"

// An open PDF document and the rendering of its pages as SVG text (through Poppler's GLib
// interface onto a cairo SVG surface in points). Internal to the PDF importer; errors are
// messages without the document's name. Never throws but for std::bad_alloc.
class VRKPdfDocument {
  public:
    VRKPdfDocument();
    ~VRKPdfDocument();
    VRKPdfDocument(const VRKPdfDocument&) = delete;
    VRKPdfDocument& operator=(const VRKPdfDocument&) = delete;

    // Opens the document held in `data`, which must outlive this object. False with `error`
    // set: damaged, encrypted or not a PDF.
    bool Open(std::string_view data, std::string& error);
    int PageCount() const;
    // Renders page `index` (from 0) into `svg` (replaced). False with `error` set.
    bool RenderPage(int index, std::string& svg, std::string& error) const;
    // The text of page `index` character by character, in reading order (replaced). Left empty
    // when the page has no text or its text layer cannot be read consistently.
    void PageCharacters(int index, std::vector<VRKPdfCharacter>& characters) const;

  private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};
