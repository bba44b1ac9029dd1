#include "host/dialogs/VRKDlgObject.h"

#include <QPixmap>
#include <algorithm>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

VRKDlgObject::VRKDlgObject(VRKDlgObject* parent, const std::string& key,
                           std::unique_ptr<VRKDlgObjectImpl> impl)
    : m_impl(std::move(impl)) {
    m_impl->owner = this;
    m_impl->parent = parent;
    m_impl->key = key;
    if (parent != nullptr) {
        parent->m_impl->children.push_back(this);
        parent->m_impl->Adopt(*m_impl);
    }
}

VRKDlgObject::~VRKDlgObject() {
    // Taking the widgets apart is nobody's change: no notification is called on the way.
    if (m_impl->widget) {
        m_impl->widget->blockSignals(true);
    }
    while (!m_impl->children.empty()) {
        delete m_impl->children.back();
    }
    if (m_impl->parent != nullptr) {
        m_impl->parent->m_impl->Remove(*m_impl);
        auto& siblings = m_impl->parent->m_impl->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
}

const std::string& VRKDlgObject::GetKey() const {
    return m_impl->key;
}

VRKDlgObject* VRKDlgObject::GetParent() const {
    return m_impl->parent;
}

VRKDlgDialog* VRKDlgObject::GetDialog() const {
    const VRKDlgObject* object = this;
    while (object != nullptr) {
        if (auto* dialog = dynamic_cast<const VRKDlgDialog*>(object)) {
            return const_cast<VRKDlgDialog*>(dialog);
        }
        object = object->GetParent();
    }
    return nullptr;
}

void VRKDlgObject::SetTitle(const std::string& title) {
    m_impl->title = title;
    m_impl->ApplyTitle(title);
}

std::string VRKDlgObject::GetTitle() const {
    return m_impl->title;
}

void VRKDlgObject::SetSensitivity(bool sensitive) {
    m_impl->ApplySensitivity(sensitive);
}

bool VRKDlgObject::IsSensitive() const {
    return m_impl->widget && m_impl->widget->isEnabled();
}

void VRKDlgObject::SetVisibility(bool visible) {
    m_impl->visible = visible;
    m_impl->ApplyVisibility(visible);
}

bool VRKDlgObject::IsVisible() const {
    return m_impl->visible;
}

void VRKDlgObject::SetGrid(int row, int column, int rowSpan, int columnSpan) {
    m_impl->row = std::max(row, 0);
    m_impl->column = std::max(column, 0);
    m_impl->rowSpan = rowSpan == -1 ? -1 : std::max(rowSpan, 1);
    m_impl->columnSpan = columnSpan == -1 ? -1 : std::max(columnSpan, 1);
    m_impl->Place();
}

int VRKDlgObject::GetGridRow() const {
    return m_impl->row;
}

int VRKDlgObject::GetGridColumn() const {
    return m_impl->column;
}

VRKDlgObject* VRKDlgObject::FindChildObject(const std::string& key) const {
    for (VRKDlgObject* child : m_impl->children) {
        if (child->GetKey() == key) {
            return child;
        }
        if (VRKDlgObject* found = child->FindChildObject(key)) {
            return found;
        }
    }
    return nullptr;
}

int VRKDlgObject::GetChildCount() const {
    return static_cast<int>(m_impl->children.size());
}

VRKDlgObject* VRKDlgObject::GetChild(int index) const {
    if (index < 0 || index >= GetChildCount()) {
        return nullptr;
    }
    return m_impl->children[static_cast<size_t>(index)];
}

bool VRKDlgObject::SaveScreenshot(const std::string& pngPath) {
    if (!m_impl->widget) {
        return false;
    }
    QWidget* top = m_impl->widget->window();
    if (!top->isVisible()) {
        top->ensurePolished();
        if (top->layout() != nullptr) {
            top->layout()->activate();
        }
        top->adjustSize();
    }
    m_impl->PrepareScreenshot();
    QPixmap picture = m_impl->widget->grab();
    return !picture.isNull() && picture.save(VRKDlgQString(pngPath), "PNG");
}

void VRKDlgContainer::SetColumnStretch(int column, int stretch) {
    if (GetImpl().grid != nullptr && column >= 0) {
        GetImpl().grid->setColumnStretch(column, std::max(stretch, 0));
    }
}
