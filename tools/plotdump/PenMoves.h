#pragma once

#include <array>
#include <string>

#include "tools/plotdump/PenPosition.h"

// What the numbers of one HP-GL instruction do to the pen: the pairs of PA, PR, PU and PD, the
// arcs AA, AR, AT and RT, the Béziers BZ and BR. IN sets absolute pairs; instructions that change
// the units or turn the coordinates (IP, IR, SC, RO, PS) and the end of polygon mode (PM2) leave
// the position unknown. Fed number by number, so that an instruction of any length needs no more
// memory than its longest group of numbers.
class PenMoves {
  public:
    // Starts an instruction; `mnemonic` in upper case.
    PenMoves(const std::string& mnemonic, PenPosition& pen);

    void Number(double value);
    // Ends the instruction; true when it moved the pen (its line then shows where to).
    bool Finish();

  private:
    // How many numbers make one step of the instruction (a pair, an arc, a curve); 0 for
    // instructions that do not move the pen.
    int stepSize() const;
    void step();

    std::string mnemonic_;
    PenPosition& pen_;
    std::array<double, 6> held_{};
    int count_ = 0;
    bool moved_ = false;
};
