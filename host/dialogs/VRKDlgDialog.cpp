#include "host/dialogs/VRKDlgDialog.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <algorithm>

#include "host/dialogs/VRKDlgApplication.h"
#include "host/dialogs/qt/VRKDlgDialogImpl.h"

namespace {

QWidget* MakeWindow(VRKDlgDialog* parent) {
    VRKDlgApplication::Ensure();
    return parent != nullptr ? parent->GetImpl().widget.data() : nullptr;
}

}  // namespace

void VRKDlgQtDialogWindow::reject() {
    m_impl.Cancel();
}

void VRKDlgQtDialogWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    m_impl.Close();
}

VRKDlgDialogImpl::VRKDlgDialogImpl(VRKDlgDialog* parentDialog, int buttons)
    : VRKDlgObjectImpl(nullptr) {
    window = new VRKDlgQtDialogWindow(MakeWindow(parentDialog), *this);
    visible = false;
    widget = window;
    auto* column = new QVBoxLayout(window);
    client = new QWidget(window);
    grid = new QGridLayout(client);
    grid->setContentsMargins(0, 0, 0, 0);
    column->addWidget(client);
    if (buttons != VRKDlgDialog::kNoButtons) {
        auto* box = new QDialogButtonBox(window);
        if ((buttons & VRKDlgDialog::kOkButton) != 0) {
            okButton = box->addButton(QDialogButtonBox::Ok);
            QObject::connect(okButton, &QPushButton::clicked, window, [this] { Ok(); });
        }
        if ((buttons & VRKDlgDialog::kCancelButton) != 0) {
            cancelButton = box->addButton(QDialogButtonBox::Cancel);
            QObject::connect(cancelButton, &QPushButton::clicked, window, [this] { Cancel(); });
        }
        column->addWidget(box);
    }
}

VRKDlgDialogImpl::~VRKDlgDialogImpl() {
    for (RunState* run : runs) {
        run->loop.quit();
    }
}

void VRKDlgDialogImpl::ApplyTitle(const std::string& text) {
    window->setWindowTitle(VRKDlgQString(text));
}

void VRKDlgDialogImpl::Adopt(VRKDlgObjectImpl& child) {
    // A dialog inside a dialog is a window of its own.
    if (dynamic_cast<VRKDlgDialogImpl*>(&child) == nullptr) {
        VRKDlgObjectImpl::Adopt(child);
    }
}

void VRKDlgDialogImpl::ApplyVisibility(bool shown) {
    if (shown && !ended) {
        OrderButtonsLast();
        window->show();
    } else {
        window->hide();
    }
}

void VRKDlgDialogImpl::Ok() {
    result = VRKDlgDialog::kOk;
    if (onOk) {
        onOk();
    } else {
        End();
    }
}

void VRKDlgDialogImpl::Cancel() {
    result = VRKDlgDialog::kCancel;
    if (onCancel) {
        onCancel();
    } else {
        End();
    }
}

void VRKDlgDialogImpl::Close() {
    if (!onClose) {
        Cancel();
        result = VRKDlgDialog::kClosed;
        return;
    }
    result = VRKDlgDialog::kClosed;
    onClose();
}

void VRKDlgDialogImpl::End() {
    if (ended) {
        return;
    }
    ended = true;
    visible = false;
    window->hide();
    for (RunState* run : runs) {
        run->result = result == VRKDlgDialog::kOk ? 1 : 0;
        run->loop.quit();
    }
    runs.clear();
    // Deleted once the current event is handled; the call dies with the window if the owner
    // deletes the dialog first.
    VRKDlgObject* dialog = owner;
    QMetaObject::invokeMethod(
        window, [dialog] { delete dialog; }, Qt::QueuedConnection);
}

void VRKDlgDialogImpl::OrderButtonsLast() {
    QWidget* last = window->previousInFocusChain();
    for (QPushButton* button : {okButton, cancelButton}) {
        if (button != nullptr && button != last) {
            QWidget::setTabOrder(last, button);
            last = button;
        }
    }
}

int VRKDlgDialogImpl::Run(VRKDlgDialog& dialog) {
    auto& impl = static_cast<VRKDlgDialogImpl&>(dialog.GetImpl());
    if (impl.ended) {
        return impl.result == VRKDlgDialog::kOk ? 1 : 0;
    }
    RunState state;
    QPointer<QWidget> window = impl.window;
    impl.runs.push_back(&state);
    dialog.Show();
    state.loop.exec();
    if (window) {
        auto& runs = impl.runs;
        runs.erase(std::remove(runs.begin(), runs.end(), &state), runs.end());
    }
    QCoreApplication::sendPostedEvents();
    return state.result;
}

VRKDlgDialog::VRKDlgDialog(VRKDlgDialog* parent, const std::string& key, int buttons)
    : VRKDlgContainer(parent, key, std::make_unique<VRKDlgDialogImpl>(parent, buttons)) {}

VRKDlgDialog::~VRKDlgDialog() = default;

static VRKDlgDialogImpl& Impl(const VRKDlgDialog& dialog) {
    return static_cast<VRKDlgDialogImpl&>(dialog.GetImpl());
}

void VRKDlgDialog::SetOnOk(VRKDlgCallback callback) {
    Impl(*this).onOk = std::move(callback);
}

void VRKDlgDialog::SetOnCancel(VRKDlgCallback callback) {
    Impl(*this).onCancel = std::move(callback);
}

void VRKDlgDialog::SetOnClose(VRKDlgCallback callback) {
    Impl(*this).onClose = std::move(callback);
}

void VRKDlgDialog::Show() {
    SetVisibility(true);
}

void VRKDlgDialog::Hide() {
    SetVisibility(false);
}

void VRKDlgDialog::RequestDelete() {
    Impl(*this).End();
}

bool VRKDlgDialog::IsDeleteRequested() const {
    return Impl(*this).ended;
}

VRKDlgDialog::Result VRKDlgDialog::GetResult() const {
    return Impl(*this).result;
}

const VRKDlgResources& VRKDlgDialog::GetResources() const {
    auto& impl = Impl(*this);
    if (!impl.resources) {
        impl.resources.emplace(GetKey());
    }
    return *impl.resources;
}
