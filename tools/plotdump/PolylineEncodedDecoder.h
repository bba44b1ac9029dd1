#pragma once

#include <cstdint>
#include <string>

#include "tools/plotdump/ListingOutput.h"
#include "tools/plotdump/PenPosition.h"
#include "tools/plotdump/PlotInput.h"

// The data of a PE instruction (the bytes after "PE" up to its ';'), one line per element, each
// indented by two blanks:
//
//   =< 2000,3000 -> 2000,3000     a pair with its flags as written: = absolute, < pen up
//      40,-40 -> 2040,2960        a relative pair and the absolute position it reaches
//   7  7-bit numbers from here    the 7 flag: base-32 digits for the rest of the PE
//   >4  fractional bits: 4        the > flag and its number: pairs are divided by 2^4
//   :3  select pen 3              the : flag and its pen number
//   ;                             the terminator
//
// Numbers are base-64 (8-bit: digits 63..126, last digit 191..254) or base-32 (7-bit: 63..94,
// last 95..126), low digits first, the lowest bit of the whole the sign.
class PolylineEncodedDecoder {
  public:
    PolylineEncodedDecoder(PlotInput& in, ListingOutput& out, PenPosition& pen)
        : in_(in), out_(out), pen_(pen) {}

    // Decodes the PE data that follows; the "PE" line has been written. Ends after the ';', or
    // before an ESC or at the end of the plot (with a line that says the ';' is missing).
    void Decode();

  private:
    // Reads one number whose first digit is next; false when it stops before its last digit
    // (the bytes read are then lost to the listing, and said so). A coordinate is `scaled` by the
    // fractional bits; the numbers of the flags are not.
    bool number(double& value, bool scaled);
    bool isDigit(int b) const;
    void pair(double x, double y);
    void flushUndecoded();

    PlotInput& in_;
    ListingOutput& out_;
    PenPosition& pen_;
    bool sevenBit_ = false;
    int fractionalBits_ = 0;
    std::string flags_;
    std::string undecoded_;
    std::uint64_t undecodedAt_ = 0;
};
