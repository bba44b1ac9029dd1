#pragma once

#include <cstdint>
#include <string>

#include "tools/plotdump/ListingOutput.h"
#include "tools/plotdump/PenPosition.h"
#include "tools/plotdump/PlotInput.h"

// PCL escape sequences, one line each: the sequence as written (ESC spelt out) and what it does.
// A combined sequence (ESC*r8s8T) gives a line per parameter, the parameter letter in the case it
// was written: "ESC*r8s  raster width: 8 pixels", "ESC*r8T  raster height: 8 rows". The data
// after a ...#W sequence (and ESC&p#X) is skipped by its count, never shown, except the few bytes
// of ESC*v#W.
class PclEscapeDecoder {
  public:
    // The language of the bytes after a sequence.
    enum class Language { kUnchanged, kPcl, kHpgl };

    PclEscapeDecoder(PlotInput& in, ListingOutput& out, PenPosition& pen)
        : in_(in), out_(out), pen_(pen) {}

    // Decodes the sequence whose ESC is the next byte.
    Language Decode();

  private:
    // One parameter: its value as written and its letter; the data it announces is read here.
    Language parameter(const std::string& prefix, const std::string& value, char letter);
    std::string describe(char family, char group, char final, const std::string& value,
                         Language& language);
    // Reads the data of a ...#W sequence; returns what its line says of it, and in `shortData`
    // what is missing when the plot ends before the data does.
    std::string data(char family, char group, const std::string& value, std::string& shortData);

    PlotInput& in_;
    ListingOutput& out_;
    PenPosition& pen_;
};
