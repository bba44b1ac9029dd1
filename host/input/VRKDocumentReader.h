#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/input/VRKDocumentInput.h"
#include "host/input/VRKDocumentOptions.h"
#include "host/input/VRKDocumentResult.h"

class VRKPrintGenerator;

// A reader of one document format: it knows the format by the document's first bytes and plays
// a document of it into a print generator, from Begin to End. A document it cannot play whole
// makes Play return false with the error in the result; what the generator wrote of it is
// incomplete, and the caller throws it away.
class VRKDocumentReader {
  public:
    virtual ~VRKDocumentReader() = default;

    // A short name ("SVG") and a line for a program's help ("SVG drawings (.svg)").
    virtual const char* GetName() const = 0;
    virtual const char* GetDescription() const = 0;
    // The file name extensions of the format, with their dots, in lower case.
    virtual std::vector<std::string> GetExtensions() const = 0;
    // True when `head`, a document's first bytes, is of this format.
    virtual bool Recognizes(std::string_view head) const = 0;

    virtual bool Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
                      const VRKDocumentOptions& options, VRKDocumentResult& result) = 0;
};
