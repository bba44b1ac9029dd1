#pragma once

#include <string>
#include <vector>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;

// A list of lines in columns with titles, of which the user selects any number (a click selects
// one line, Ctrl+click adds or removes one, Shift+click a run).
class VRKDlgMultiList : public VRKDlgObject {
  public:
    VRKDlgMultiList(VRKDlgContainer& parent, const std::string& key);

    void SetColumns(const std::vector<std::string>& titles);
    int GetColumnCount() const;
    // The height of the list in lines.
    void SetVisibleLineCount(int lines);
    int GetVisibleLineCount() const;

    // Sets one cell; lines up to `row` are added as needed. False when row < 0 or the column does
    // not exist.
    bool SetLine(int row, int column, const std::string& text);
    std::string GetLine(int row, int column) const;
    int GetLineCount() const;
    void ClearLines();

    // The selected lines, in ascending order.
    std::vector<int> GetSelect() const;
    // Selects exactly these lines; lines that do not exist are passed over.
    void SetSelect(const std::vector<int>& rows);
    // Called when the user changes the selection.
    void SetOnSelect(VRKDlgCallback callback);
};
