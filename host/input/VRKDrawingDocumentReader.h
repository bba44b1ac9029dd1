#pragma once

#include "host/drawing/VRKDrawing.h"
#include "host/input/VRKDocumentReader.h"

// The common path of drawing formats (SVG, PDF): the format's importer makes a VRKDrawing, which
// is measured, ordered for pen travel when asked, laid out on the form and played.
class VRKDrawingDocumentReader : public VRKDocumentReader {
  public:
    bool Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
              const VRKDocumentOptions& options, VRKDocumentResult& result) override;

  protected:
    // Reads the whole document into `drawing`. False with result.error set; warnings go to
    // result.warnings.
    virtual bool Import(VRKDocumentInput& input, VRKDrawing& drawing,
                        VRKDocumentResult& result) = 0;
};
