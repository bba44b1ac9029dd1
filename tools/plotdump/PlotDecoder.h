#pragma once

#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>

#include "tools/plotdump/HpglDecoder.h"
#include "tools/plotdump/ListingOutput.h"
#include "tools/plotdump/PclEscapeDecoder.h"
#include "tools/plotdump/PenPosition.h"
#include "tools/plotdump/PlotInput.h"

// The listing of a plot file: one line per instruction, from the bytes alone (docs/vrkplot.md has
// the format). PJL lines are shown as written; PCL escape sequences by PclEscapeDecoder; HP-GL
// and HP-GL/2 instructions by HpglDecoder. Between them:
//
//   white space "\n"                  blanks and line ends between instructions
//   text "..."                        printable bytes in PCL (text for the page)
//   ;                                 a ';' that ends no instruction
//   ! at byte 120: undecoded "\x01"   bytes that are none of these, up to 32 a line
//
// Every line that starts with '!' says something is wrong, with the offset of the bytes. The last
// line is "end of plot: N bytes, A anomalies, sha256 HEX" ("1 anomaly"). Any input gives a listing, in time and
// memory linear in its size and with no line longer than a few KiB.
class PlotDecoder {
  public:
    PlotDecoder(std::streambuf& plot, std::ostream& listing);

    // Decodes the whole plot.
    void Decode();

  private:
    enum class Run { kNone, kWhiteSpace, kText, kUndecoded };
    void add(Run run, char c);
    void flush();
    bool atPjl();
    void pjlLine();

    PlotInput in_;
    ListingOutput out_;
    PenPosition pen_;
    PclEscapeDecoder escapes_;
    HpglDecoder hpgl_;
    // PCL's printable bytes are text; HP-GL's are instructions.
    bool pcl_ = false;
    Run run_ = Run::kNone;
    std::string runBytes_;
    std::uint64_t runAt_ = 0;
};
