#pragma once

#include <string>
#include <vector>

#include "host/input/VRKDocumentInput.h"
#include "host/input/VRKDocumentReader.h"

// The document formats a program can play, and the choice of a reader for a document: by its
// content first (an SVG root element, a job file's first verb), then by its extension.
class VRKDocumentFormats {
  public:
    // Every reader, in the order they are tried.
    static const std::vector<VRKDocumentReader*>& All();
    // The reader for `input`, or null with `error` saying which formats are known.
    static VRKDocumentReader* Choose(const VRKDocumentInput& input, std::string& error);
    // One line a format, for a program's help.
    static std::string Describe();
};
