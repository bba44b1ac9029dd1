#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A drop-down list of lines; each line has a text and may show a colour swatch before it.
class VRKDlgCombo : public VRKDlgObject {
  public:
    VRKDlgCombo(VRKDlgContainer& parent, const std::string& key);

    // Appends a line; returns its index.
    int AppendLine(const std::string& text);
    // A line with a colour swatch; the components are 0 to 255 (clamped).
    int AppendLine(const std::string& text, int red, int green, int blue);
    // Sets the text of an existing line (false when there is no such line), or appends it when
    // `index` is the line count.
    bool SetLine(int index, const std::string& text);
    bool SetLine(int index, const std::string& text, int red, int green, int blue);
    std::string GetLine(int index) const;
    // The swatch of a line: false when the line has none.
    bool GetLineColor(int index, int& red, int& green, int& blue) const;
    void ClearLines();
    int GetLineCount() const;

    // The selected line; -1 for none. An index out of range selects none.
    void SetSelect(int index);
    int GetSelect() const;
    // Called when the user selects a line (from the list or with the keyboard).
    void SetOnSelect(VRKDlgCallback callback);
};
