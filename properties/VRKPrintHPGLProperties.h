#pragma once

#include "host/core/VRKBaseUnknown.h"
#include "properties/VRKPenTable.h"

// HP-GL settings: the pen table of a pen plotter (32 slots of red, green, blue on a 0-255 scale,
// width in millimetres and an enable flag), the origin of the coordinate system, relative pen
// moves and whether the plotter renders pen widths itself. Slot 0 stands for "no pen".
class VRKPrintHPGLProperties : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKPrintHPGLProperties)
  public:
    // Room in every pen array.
    static constexpr int kPenSlots = VRKPenTable::kSlots;

    VRKPrintHPGLProperties();

    int GetPenCount() const { return pens.Count(); }
    // The pen table as a whole, for code that works on pens rather than on parallel arrays.
    const VRKPenTable& GetPenTable() const { return pens; }
    void SetPenTable(const VRKPenTable& table) { pens = table; }
    int GetOrigin() const { return origin; }
    void SetOrigin(int value) { origin = value; }
    int GetRelativeMovePen() const { return relativeMovePen; }
    void SetRelativeMovePen(int value) { relativeMovePen = value; }
    int GetPrintThickness() const { return printThickness; }
    void SetPrintThickness(int value) { printThickness = value; }

    // Bulk pen access, always by copy of GetPenCount() entries into arrays of 32 the caller owns.
    void GetPenColors(float* redOut, float* greenOut, float* blueOut) const;
    void GetPenWidths(float* widthOut) const;
    void GetPenEnables(int* enableOut) const;
    // Sets the pen count and copies that many entries from each array. The count is kept as
    // given; more than 32 is the caller's error, and only the 32 slots that exist are copied.
    void SetPens(int count, const float* redIn, const float* greenIn, const float* blueIn,
                 const float* widthIn, const int* enableIn);

  protected:
    VRKPenTable pens;
    int origin = 1;  // "Lower Left Corner"
    int relativeMovePen = 1;
    int printThickness = 0;
};
