#pragma once

#include "host/input/VRKDocumentReader.h"

// Job files (docs/jobfile.md), played line by line by VRKJobPlayer as they stand: they set
// their own pages, so the layout options do not apply to them, and they are not reordered.
class VRKJobDocumentReader final : public VRKDocumentReader {
  public:
    const char* GetName() const override { return "job"; }
    const char* GetDescription() const override { return "job files (.job)"; }
    std::vector<std::string> GetExtensions() const override { return {".job"}; }
    // The first word that is not in a comment is one of the verbs of job files.
    bool Recognizes(std::string_view head) const override;
    bool Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
              const VRKDocumentOptions& options, VRKDocumentResult& result) override;
};
