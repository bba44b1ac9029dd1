#pragma once

#include "host/input/VRKDrawingDocumentReader.h"

// PDF documents, read by VRKPdfImporter: every page a page of the plot, on a form of its own
// size unless the layout options say otherwise.
class VRKPdfDocumentReader final : public VRKDrawingDocumentReader {
  public:
    const char* GetName() const override { return "PDF"; }
    const char* GetDescription() const override { return "PDF documents (.pdf)"; }
    std::vector<std::string> GetExtensions() const override { return {".pdf"}; }
    bool Recognizes(std::string_view head) const override;
    // Plays the document with the options' text mode (VRKDocumentOptions::textLabels).
    bool Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
              const VRKDocumentOptions& options, VRKDocumentResult& result) override;

  protected:
    bool Import(VRKDocumentInput& input, const PageSink& page, VRKDocumentResult& result) override;

  private:
    bool textLabels_ = false;
};
