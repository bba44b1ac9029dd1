#include <QTabWidget>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/VRKDlgTabContainer.h"
#include "host/dialogs/VRKDlgTabPage.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"
#include "host/dialogs/qt/VRKDlgPicture.h"

namespace {

class TabContainerImpl : public VRKDlgObjectImpl {
  public:
    TabContainerImpl()
        : VRKDlgObjectImpl(new QTabWidget), tabs(static_cast<QTabWidget*>(widget.data())) {
        QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [this](int) {
            if (!fromCode && onChange) {
                onChange();
            }
        });
    }
    // Pages go into the tabs, not the grid.
    void Adopt(VRKDlgObjectImpl& child) override {
        fromCode = true;
        tabs->addTab(child.widget, VRKDlgQString(child.title));
        fromCode = false;
    }
    void Remove(VRKDlgObjectImpl& child) override {
        fromCode = true;
        tabs->removeTab(tabs->indexOf(child.widget));
        fromCode = false;
    }
    QTabWidget* tabs;
    VRKDlgCallback onChange;
    bool fromCode = false;
};

class TabPageImpl : public VRKDlgObjectImpl {
  public:
    TabPageImpl() : VRKDlgObjectImpl(new QWidget) { grid = new QGridLayout(widget); }
    QTabWidget* Tabs() const { return static_cast<TabContainerImpl&>(parent->GetImpl()).tabs; }
    int Index() const { return Tabs()->indexOf(widget); }
    void ApplyTitle(const std::string& text) override {
        Tabs()->setTabText(Index(), VRKDlgQString(text));
    }
    void ApplySensitivity(bool sensitive) override { Tabs()->setTabEnabled(Index(), sensitive); }
    void ApplyVisibility(bool shown) override { Tabs()->setTabVisible(Index(), shown); }
    void PrepareScreenshot() override {
        auto& container = static_cast<TabContainerImpl&>(parent->GetImpl());
        container.fromCode = true;
        Tabs()->setCurrentWidget(widget);
        container.fromCode = false;
    }
    std::string picture;
};

TabContainerImpl& Impl(const VRKDlgTabContainer& tabs) {
    return static_cast<TabContainerImpl&>(tabs.GetImpl());
}

}  // namespace

VRKDlgTabContainer::VRKDlgTabContainer(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<TabContainerImpl>()) {}

int VRKDlgTabContainer::GetCurrentPage() const {
    return Impl(*this).tabs->currentIndex();
}

void VRKDlgTabContainer::SetCurrentPage(int index) {
    if (index < 0 || index >= GetPageCount()) {
        return;
    }
    Impl(*this).fromCode = true;
    Impl(*this).tabs->setCurrentIndex(index);
    Impl(*this).fromCode = false;
}

void VRKDlgTabContainer::SetCurrentPage(const VRKDlgTabPage& page) {
    SetCurrentPage(Impl(*this).tabs->indexOf(page.GetImpl().widget));
}

int VRKDlgTabContainer::GetPageCount() const {
    return Impl(*this).tabs->count();
}

void VRKDlgTabContainer::SetOnChange(VRKDlgCallback callback) {
    Impl(*this).onChange = std::move(callback);
}

VRKDlgTabPage::VRKDlgTabPage(VRKDlgTabContainer& parent, const std::string& key)
    : VRKDlgContainer(&parent, key, std::make_unique<TabPageImpl>()) {}

void VRKDlgTabPage::SetPicture(const std::string& name) {
    auto& impl = static_cast<TabPageImpl&>(GetImpl());
    impl.picture = name;
    QPixmap picture = name.empty() ? QPixmap() : VRKDlgLoadPicture(name);
    impl.Tabs()->setTabIcon(impl.Index(), picture.isNull() ? QIcon() : QIcon(picture));
}

const std::string& VRKDlgTabPage::GetPicture() const {
    return static_cast<TabPageImpl&>(GetImpl()).picture;
}
