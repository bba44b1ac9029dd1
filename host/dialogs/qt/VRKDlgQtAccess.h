#pragma once

// The Qt widgets behind the toolkit's objects, for tests that drive them with real events. The
// dialogs themselves never include this header.
#include <QPushButton>
#include <QWidget>

#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/qt/VRKDlgDialogImpl.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

inline QWidget* VRKDlgQtWidget(const VRKDlgObject& object) {
    return object.GetImpl().widget.data();
}

inline QPushButton* VRKDlgQtOkButton(const VRKDlgDialog& dialog) {
    return static_cast<VRKDlgDialogImpl&>(dialog.GetImpl()).okButton;
}

inline QPushButton* VRKDlgQtCancelButton(const VRKDlgDialog& dialog) {
    return static_cast<VRKDlgDialogImpl&>(dialog.GetImpl()).cancelButton;
}
