#pragma once

#include <functional>
#include <new>
#include <string>

#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/VRKDlgResources.h"

// What the driver's dialogs have in common: their texts, read from the resource file named after
// the dialog's class, and the end of a dialog that tells its owner. A dialog that tells its owner
// how it ended makes EndNotification and SetOnEnd public with using-declarations.
class VRKPrintPropertyDialog : public VRKDlgDialog {
  protected:
    // Called when the dialog ends: true after OK, false after Cancel or the close box.
    using EndNotification = std::function<void(bool ok)>;

    // `key` is the dialog's key (see VRKDlgDialog); `className` names the resource file of the
    // texts.
    VRKPrintPropertyDialog(VRKDlgDialog* parent, const std::string& key,
                           const std::string& className, int buttons = kOkButton | kCancelButton);

    void SetOnEnd(EndNotification notification) { onEnd = std::move(notification); }

    // The text of `key` in the dialog's resource file, else `fallback`.
    std::string Text(const std::string& key, const std::string& fallback) const;
    const VRKDlgResources& GetTexts() const { return texts; }

    // The end notification, which the dialog no longer holds.
    EndNotification TakeEndNotification();
    // Asks for the dialog's deletion, then calls the end notification, if any, with `ok`.
    void End(bool ok);

  private:
    VRKDlgResources texts;
    EndNotification onEnd;
};
