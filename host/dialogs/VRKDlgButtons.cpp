// The check button and the radio button.
#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>

#include "host/dialogs/VRKDlgCheckButton.h"
#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/VRKDlgRadioButton.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

// Changes made from code, counted for every button at once: a button checked from code in an
// exclusive group unchecks another, and that is no user's change either.
int changesFromCode = 0;

class FromCode {
  public:
    FromCode() { ++changesFromCode; }
    ~FromCode() { --changesFromCode; }
    FromCode(const FromCode&) = delete;
    FromCode& operator=(const FromCode&) = delete;
};

// A checkable button: OnChange on every change of state but those made by SetState.
template <class Widget>
class CheckableImpl : public VRKDlgObjectImpl {
  public:
    CheckableImpl() : VRKDlgObjectImpl(new Widget) {
        QObject::connect(Get(), &QAbstractButton::toggled, Get(), [this](bool) {
            if (changesFromCode == 0 && onChange) {
                onChange();
            }
        });
    }
    Widget* Get() const { return static_cast<Widget*>(widget.data()); }
    void ApplyTitle(const std::string& text) override { Get()->setText(VRKDlgQString(text)); }
    void SetState(bool checked) {
        FromCode fromCode;
        QButtonGroup* group = Get()->group();
        // An exclusive group refuses to uncheck its checked button.
        bool exclusive = group != nullptr && group->exclusive();
        if (!checked && exclusive) {
            group->setExclusive(false);
        }
        Get()->setChecked(checked);
        if (!checked && exclusive) {
            group->setExclusive(true);
        }
    }

    VRKDlgCallback onChange;
};

using CheckImpl = CheckableImpl<QCheckBox>;

class RadioImpl : public CheckableImpl<QRadioButton> {
  public:
    RadioImpl() { Get()->setAutoExclusive(false); }
};

}  // namespace

VRKDlgCheckButton::VRKDlgCheckButton(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<CheckImpl>()) {}

void VRKDlgCheckButton::SetState(bool checked) {
    static_cast<CheckImpl&>(GetImpl()).SetState(checked);
}

bool VRKDlgCheckButton::GetState() const {
    return static_cast<CheckImpl&>(GetImpl()).Get()->isChecked();
}

void VRKDlgCheckButton::SetOnChange(VRKDlgCallback callback) {
    static_cast<CheckImpl&>(GetImpl()).onChange = std::move(callback);
}

VRKDlgRadioButton::VRKDlgRadioButton(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<RadioImpl>()) {}

void VRKDlgRadioButton::SetState(bool checked) {
    static_cast<RadioImpl&>(GetImpl()).SetState(checked);
}

bool VRKDlgRadioButton::GetState() const {
    return static_cast<RadioImpl&>(GetImpl()).Get()->isChecked();
}

void VRKDlgRadioButton::SetExclusive(bool exclusive) {
    auto& impl = static_cast<RadioImpl&>(GetImpl());
    VRKDlgObjectImpl& container = GetParent()->GetImpl();
    FromCode fromCode;
    if (exclusive) {
        if (container.exclusiveGroup == nullptr) {
            container.exclusiveGroup = new QButtonGroup(container.widget);
        }
        container.exclusiveGroup->addButton(impl.Get());
    } else if (impl.Get()->group() != nullptr) {
        impl.Get()->group()->removeButton(impl.Get());
    }
}

void VRKDlgRadioButton::SetOnChange(VRKDlgCallback callback) {
    static_cast<RadioImpl&>(GetImpl()).onChange = std::move(callback);
}
