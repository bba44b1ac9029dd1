#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QPushButton>
#include <memory>
#include <optional>
#include <vector>

#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

class VRKDlgDialogImpl;

// The dialog's window: Escape and the close box come back to the implementation.
class VRKDlgQtDialogWindow : public QDialog {
  public:
    VRKDlgQtDialogWindow(QWidget* parent, VRKDlgDialogImpl& impl) : QDialog(parent), m_impl(impl) {}
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    VRKDlgDialogImpl& m_impl;
};

class VRKDlgDialogImpl : public VRKDlgObjectImpl {
  public:
    VRKDlgDialogImpl(VRKDlgDialog* parentDialog, int buttons);
    ~VRKDlgDialogImpl() override;

    void ApplyTitle(const std::string& text) override;
    void Adopt(VRKDlgObjectImpl& child) override;
    void ApplyVisibility(bool shown) override;

    void Ok();
    void Cancel();
    void Close();
    void End();
    // Puts OK and Cancel after every other widget in the keyboard's order.
    void OrderButtonsLast();
    static int Run(VRKDlgDialog& dialog);

    struct RunState {
        QEventLoop loop;
        int result = 0;
    };

    VRKDlgQtDialogWindow* window;
    QWidget* client;
    QPushButton* okButton = nullptr;
    QPushButton* cancelButton = nullptr;
    VRKDlgCallback onOk, onCancel, onClose;
    VRKDlgDialog::Result result = VRKDlgDialog::kNone;
    bool ended = false;
    std::vector<RunState*> runs;
    mutable std::optional<VRKDlgResources> resources;
};
