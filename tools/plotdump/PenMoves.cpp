#include "tools/plotdump/PenMoves.h"

PenMoves::PenMoves(const std::string& mnemonic, PenPosition& pen) : mnemonic_(mnemonic), pen_(pen) {
    if (mnemonic_ == "PA" || mnemonic_ == "IN") {
        pen_.SetAbsolute(true);
    } else if (mnemonic_ == "PR") {
        pen_.SetAbsolute(false);
    }
    if (mnemonic_ == "IN" || mnemonic_ == "IP" || mnemonic_ == "IR" || mnemonic_ == "SC" ||
        mnemonic_ == "RO" || mnemonic_ == "PS") {
        pen_.Forget();
    }
}

int PenMoves::stepSize() const {
    if (mnemonic_ == "PA" || mnemonic_ == "PR" || mnemonic_ == "PU" || mnemonic_ == "PD") {
        return 2;
    }
    if (mnemonic_ == "AA" || mnemonic_ == "AR") {
        return 3;
    }
    if (mnemonic_ == "AT" || mnemonic_ == "RT") {
        return 4;
    }
    if (mnemonic_ == "BZ" || mnemonic_ == "BR") {
        return 6;
    }
    return 0;
}

void PenMoves::Number(double value) {
    if (mnemonic_ == "PM" && count_ == 0 && value == 2) {
        pen_.Forget();
    }
    const int size = stepSize();
    if (size == 0) {
        count_ = 1;
        return;
    }
    // An arc's chord angle (its fourth number) and whatever follows the first arc are no step.
    if ((size == 3 && moved_) || (size == 4 && moved_)) {
        return;
    }
    held_[static_cast<std::size_t>(count_++)] = value;
    if (count_ == size) {
        step();
        count_ = 0;
        moved_ = true;
    }
}

void PenMoves::step() {
    const double startX = pen_.X();
    const double startY = pen_.Y();
    if (mnemonic_ == "PA" || mnemonic_ == "PR" || mnemonic_ == "PU" || mnemonic_ == "PD") {
        pen_.Pair(held_[0], held_[1]);
    } else if (mnemonic_ == "AA") {
        pen_.Arc(held_[0], held_[1], held_[2]);
    } else if (mnemonic_ == "AR") {
        pen_.Arc(startX + held_[0], startY + held_[1], held_[2]);
    } else if (mnemonic_ == "AT" || mnemonic_ == "BZ") {
        pen_.MoveTo(held_[count_ - 2], held_[count_ - 1]);
    } else {
        // RT and BR: the end relative to where the arc or curve starts.
        pen_.MoveTo(startX + held_[count_ - 2], startY + held_[count_ - 1]);
    }
}

bool PenMoves::Finish() {
    return moved_;
}
