#pragma once

#include <cstdint>
#include <string>

#include "tools/plotdump/ListingOutput.h"
#include "tools/plotdump/PenPosition.h"
#include "tools/plotdump/PlotInput.h"
#include "tools/plotdump/PolylineEncodedDecoder.h"

// HP-GL and HP-GL/2 instructions, one line each: the two-letter mnemonic as written, a blank and
// its parameters as written, the ';' when one ends it, and for an instruction that moves the pen
// "-> X,Y", the position it reaches:
//
//   SP 6
//   PU 4000.00,6000.00 -> 4000,6000
//   PD;
//   LB "Plan 7 \"A\" caf\xE9"
//
// Label text (LB, and BL and WD of HP-GL) runs to the label terminator, ETX unless DT set
// another, and is shown in double quotes; CO's comment likewise. PE's data is decoded below its
// line (PolylineEncodedDecoder).
class HpglDecoder {
  public:
    HpglDecoder(PlotInput& in, ListingOutput& out, PenPosition& pen)
        : in_(in), out_(out), pen_(pen), encoded_(in, out, pen) {}

    // Decodes the instruction whose two letters are next.
    void Decode();

  private:
    void numeric(const std::string& written, const std::string& mnemonic);
    void label(const std::string& written);
    void terminator(const std::string& written);
    void comment(const std::string& written);
    void symbol(const std::string& written);
    // The ';' after an instruction, taken when it is next.
    std::string semicolon();
    // Up to `limit` bytes shown of a text of any length; the rest is counted.
    static void keep(std::string& shown, std::uint64_t& more, char c, std::size_t limit);

    PlotInput& in_;
    ListingOutput& out_;
    PenPosition& pen_;
    PolylineEncodedDecoder encoded_;
    char labelTerminator_ = '\x03';
};
