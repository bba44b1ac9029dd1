#pragma once

#include <array>
#include <string>

#include "properties/VRKPenTable.h"

class VRKPrintHPGLProperties;

// What the HP-GL pen dialog edits: private copies of a record's pen table, with each pen's colour
// index among the seven named colours (7 for a free colour). The copies reach the record only
// when the dialog's OK writes them back; Reset writes the default pens at once.
class VRKPrintHPGLPenCopies {
  public:
    // The index of the free colour, the "..." line of the colour choice.
    static constexpr int kFreeColor = 7;

    // One named colour: its line key and fallback text, and its components 0 to 255.
    struct NamedColor {
        const char* key;
        const char* text;
        int red, green, blue;
    };
    static const std::array<NamedColor, 7>& NamedColors();

    explicit VRKPrintHPGLPenCopies(const VRKPrintHPGLProperties& record);

    // The colour index of a colour: its components truncated and packed as
    // ((R * 256) + G) * 256 + B, then looked up among the named colours in order; 7 without a
    // match.
    static int ColorIndexOf(float red, float green, float blue);

    // The list shows pens 1 to count - 1: row r is pen r + 1.
    int RowCount() const;
    static int PenOfRow(int row) { return row + 1; }
    // The three cells of a row: the pen number, its width and its activation.
    static std::string NumberCell(int pen);
    static std::string WidthCell(float width);
    static std::string ActivationCell(bool enabled);

    const VRKPen& Pen(int pen) const { return pens.Slots()[static_cast<std::size_t>(pen)]; }
    int ColorIndex(int pen) const { return colorIndex[static_cast<std::size_t>(pen)]; }

    // A named colour chosen for a pen (line 0 to 6).
    void ChooseNamedColor(int pen, int line);
    // A free colour chosen for a pen.
    void ChooseFreeColor(int pen, float red, float green, float blue);
    void SetWidth(int pen, float width);
    void SetEnabled(int pen, bool enabled);

    // The pens into the record, count included.
    void WriteTo(VRKPrintHPGLProperties& record) const;
    // The whole default pen table into the record, at once; its other settings stay.
    static void ResetPens(VRKPrintHPGLProperties& record);

  private:
    VRKPenTable pens;
    std::array<int, VRKPenTable::kSlots> colorIndex{};
};
