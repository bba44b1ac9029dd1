#pragma once

#include "host/input/VRKDrawingDocumentReader.h"

// SVG drawings, read by VRKSvgImporter.
class VRKSvgDocumentReader final : public VRKDrawingDocumentReader {
  public:
    // The largest SVG file read: far above any real drawing, and a bound on what a file can
    // make the importer hold.
    static constexpr std::size_t kMaxFileSize = std::size_t{1} << 30;

    const char* GetName() const override { return "SVG"; }
    const char* GetDescription() const override { return "SVG drawings (.svg)"; }
    std::vector<std::string> GetExtensions() const override { return {".svg"}; }
    bool Recognizes(std::string_view head) const override;

  protected:
    bool Import(VRKDocumentInput& input, const PageSink& page, VRKDocumentResult& result) override;
};
