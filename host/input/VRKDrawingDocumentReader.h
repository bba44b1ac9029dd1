#pragma once

#include <functional>

#include "host/drawing/VRKDrawing.h"
#include "host/input/VRKDocumentReader.h"

// The common path of drawing formats (SVG, PDF): the format's importer makes a VRKDrawing for
// each page, which is measured, ordered for pen travel when asked, laid out on its form and
// played: Begin with the first page's form, StartNewPage with the form of each page after it,
// End after the last.
class VRKDrawingDocumentReader : public VRKDocumentReader {
  public:
    bool Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
              const VRKDocumentOptions& options, VRKDocumentResult& result) override;

  protected:
    // What an importer hands each page to; false stops the import (the page could not be
    // played, and result.error says why).
    using PageSink = std::function<bool(VRKDrawing& page)>;

    // Reads the whole document, handing each page to `page` as soon as it is made, in order, so
    // that only one page is held at a time. False with result.error set; warnings go to
    // result.warnings. A document of no pages is an error.
    virtual bool Import(VRKDocumentInput& input, const PageSink& page,
                        VRKDocumentResult& result) = 0;
};
