#include "host/dialogs/qt/VRKDlgObjectImpl.h"

#include <QButtonGroup>
#include <algorithm>

VRKDlgObjectImpl::~VRKDlgObjectImpl() {
    if (widget) {
        QObject::disconnect(widget, nullptr, nullptr, nullptr);
        delete widget.data();
    }
}

void VRKDlgObjectImpl::ApplyTitle(const std::string&) {}

void VRKDlgObjectImpl::Adopt(VRKDlgObjectImpl& child) {
    if (grid == nullptr || !child.widget) {
        return;
    }
    child.widget->setParent(grid->parentWidget());
    child.row = nextRow;
    child.column = 0;
    child.rowSpan = 1;
    child.columnSpan = child.fullWidth ? -1 : 1;
    nextRow = child.row + 1;
    child.Place();
    child.widget->setVisible(child.visible);
}

void VRKDlgObjectImpl::Place() {
    if (parent == nullptr || !widget) {
        return;
    }
    VRKDlgObjectImpl& p = parent->GetImpl();
    if (p.grid == nullptr) {
        return;
    }
    p.grid->removeWidget(widget);
    p.grid->addWidget(widget, row, column, rowSpan, columnSpan);
    p.nextRow = std::max(p.nextRow, row + std::max(rowSpan, 1));
}

void VRKDlgObjectImpl::ApplySensitivity(bool sensitive) {
    if (widget) {
        widget->setEnabled(sensitive);
    }
}

void VRKDlgObjectImpl::ApplyVisibility(bool shown) {
    if (widget) {
        widget->setVisible(shown);
    }
}

QString VRKDlgQString(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
