#pragma once

#include <string>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/VRKDlgResources.h"

// A top-level dialog window: a client area (a grid, like every container) over a row of optional
// OK and Cancel buttons.
//
// The buttons and the window's close box call the notifications; the dialog does not end by
// itself when one is set: the notification decides, by calling RequestDelete() (or not, when a
// value is refused). Without a notification, OK, Cancel and the close box end the dialog. The close
// box and the Escape key without an OnClose act as Cancel.
//
// A dialog is made with `new`. It ends when RequestDelete() is called: it is hidden at once, a
// running Run() returns, and it deletes itself once the current event is handled, so that a
// notification may end its own dialog. Its owner may delete it instead, at any time before. A
// dialog with a parent dialog is owned by it.
class VRKDlgDialog : public VRKDlgContainer {
  public:
    enum Buttons { kNoButtons = 0, kOkButton = 1, kCancelButton = 2 };
    enum Result { kNone, kOk, kCancel, kClosed };

    // `key` is the dialog's class name: it names the resource file (GetResources()).
    VRKDlgDialog(VRKDlgDialog* parent, const std::string& key,
                 int buttons = kOkButton | kCancelButton);
    ~VRKDlgDialog() override;

    void SetOnOk(VRKDlgCallback callback);
    void SetOnCancel(VRKDlgCallback callback);
    void SetOnClose(VRKDlgCallback callback);

    void Show();
    void Hide();
    // Ends the dialog (see above). Calling it again changes nothing.
    void RequestDelete();
    bool IsDeleteRequested() const;
    // The last of OK, Cancel and the close box used.
    Result GetResult() const;

    // The dialog's texts, read on first use from the resource file named after its key.
    const VRKDlgResources& GetResources() const;

    // Saves the whole window, buttons and all, as a PNG file.
    using VRKDlgObject::SaveScreenshot;
};
