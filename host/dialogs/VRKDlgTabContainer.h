#pragma once

#include <string>

#include "host/dialogs/VRKDlgObject.h"

class VRKDlgContainer;
class VRKDlgTabPage;

// A set of tab pages, one shown at a time. Its children are VRKDlgTabPage objects, in the order
// of their tabs.
class VRKDlgTabContainer : public VRKDlgObject {
  public:
    VRKDlgTabContainer(VRKDlgContainer& parent, const std::string& key);

    // The index of the page shown (-1 when there is none), and showing one.
    int GetCurrentPage() const;
    void SetCurrentPage(int index);
    void SetCurrentPage(const VRKDlgTabPage& page);
    int GetPageCount() const;
    // Called when the user changes the page shown.
    void SetOnChange(VRKDlgCallback callback);
};
