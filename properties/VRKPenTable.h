#pragma once

#include <array>

#include "properties/VRKPen.h"

// The pens of a pen plotter: 32 slots, of which the first Count() are in use. Slot 0 stands for
// "no pen". The count is kept as it is given, even beyond 32 or below 0; slots outside 0 to 31 do
// not exist, and At() answers null for them.
class VRKPenTable {
  public:
    static constexpr int kSlots = 32;

    int Count() const { return count; }
    void SetCount(int value) { count = value; }
    // How many slots the count covers: the count held to 0 to 32.
    int UsedSlots() const { return count < 0 ? 0 : (count > kSlots ? kSlots : count); }
    // True when `pen` is a slot within the count.
    bool InUse(int pen) const { return pen >= 0 && pen < UsedSlots(); }

    // The pen in a slot, or null outside 0 to 31.
    VRKPen* At(int slot) { return slot >= 0 && slot < kSlots ? &pens[slot] : nullptr; }
    const VRKPen* At(int slot) const { return slot >= 0 && slot < kSlots ? &pens[slot] : nullptr; }
    // Every slot, whatever the count.
    std::array<VRKPen, kSlots>& Slots() { return pens; }
    const std::array<VRKPen, kSlots>& Slots() const { return pens; }

    bool operator==(const VRKPenTable&) const = default;

  private:
    std::array<VRKPen, kSlots> pens{};
    int count = kSlots;
};
