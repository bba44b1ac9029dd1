#include "dialogs/VRKPrintPropertyDialog.h"

#include <utility>

VRKPrintPropertyDialog::VRKPrintPropertyDialog(VRKDlgDialog* parent, const std::string& key,
                                               const std::string& className, int buttons)
    : VRKDlgDialog(parent, key, buttons), texts(className) {}

std::string VRKPrintPropertyDialog::Text(const std::string& key,
                                         const std::string& fallback) const {
    return texts.GetResourceValueFromKey(key, fallback);
}

VRKPrintPropertyDialog::EndNotification VRKPrintPropertyDialog::TakeEndNotification() {
    EndNotification notification = std::move(onEnd);
    onEnd = nullptr;
    return notification;
}

void VRKPrintPropertyDialog::End(bool ok) {
    EndNotification notification = TakeEndNotification();
    RequestDelete();
    if (notification) {
        notification(ok);
    }
}
