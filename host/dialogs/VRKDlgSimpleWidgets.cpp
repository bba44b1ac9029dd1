// The frame, the separator, the label and the push button.
#include <QFile>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/VRKDlgFrame.h"
#include "host/dialogs/VRKDlgLabel.h"
#include "host/dialogs/VRKDlgPushButton.h"
#include "host/dialogs/VRKDlgResources.h"
#include "host/dialogs/VRKDlgSeparator.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"
#include "host/dialogs/qt/VRKDlgPicture.h"

QPixmap VRKDlgLoadPicture(const std::string& name) {
    QPixmap picture;
    picture.load(VRKDlgQString(VRKDlgResources::PicturePath(name)), "PNG");
    return picture;
}

namespace {

class FrameImpl : public VRKDlgObjectImpl {
  public:
    FrameImpl() : VRKDlgObjectImpl(new QGroupBox) { grid = new QGridLayout(widget); }
    void ApplyTitle(const std::string& text) override {
        static_cast<QGroupBox*>(widget.data())->setTitle(VRKDlgQString(text));
    }
};

class SeparatorImpl : public VRKDlgObjectImpl {
  public:
    SeparatorImpl() : VRKDlgObjectImpl(new QFrame) {
        auto* line = static_cast<QFrame*>(widget.data());
        line->setFrameShape(QFrame::HLine);
        line->setFrameShadow(QFrame::Sunken);
        fullWidth = true;
    }
};

// A label or a push button: the title as text, or a picture instead.
template <class Widget>
class PictureImpl : public VRKDlgObjectImpl {
  public:
    PictureImpl() : VRKDlgObjectImpl(new Widget) {}
    Widget* Get() const { return static_cast<Widget*>(widget.data()); }
    void ApplyTitle(const std::string&) override { Show(); }
    void SetPicture(const std::string& name) {
        picture = name;
        pixmap = name.empty() ? QPixmap() : VRKDlgLoadPicture(name);
        Show();
    }
    void Show() {
        if (pixmap.isNull()) {
            ShowText(VRKDlgQString(picture.empty() ? title : picture));
        } else {
            ShowPicture();
        }
    }
    void ShowText(const QString& text);
    void ShowPicture();

    std::string picture;
    QPixmap pixmap;
    VRKDlgCallback onPush;
};

template <>
void PictureImpl<QLabel>::ShowText(const QString& text) {
    Get()->setText(text);
}
template <>
void PictureImpl<QLabel>::ShowPicture() {
    Get()->setPixmap(pixmap);
}
template <>
void PictureImpl<QPushButton>::ShowText(const QString& text) {
    Get()->setIcon(QIcon());
    Get()->setText(text);
}
template <>
void PictureImpl<QPushButton>::ShowPicture() {
    Get()->setText(QString());
    Get()->setIcon(QIcon(pixmap));
    Get()->setIconSize(pixmap.size());
}

using LabelImpl = PictureImpl<QLabel>;
using ButtonImpl = PictureImpl<QPushButton>;

}  // namespace

VRKDlgFrame::VRKDlgFrame(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgContainer(&parent, key, std::make_unique<FrameImpl>()) {}

VRKDlgSeparator::VRKDlgSeparator(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<SeparatorImpl>()) {}

VRKDlgLabel::VRKDlgLabel(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<LabelImpl>()) {}

void VRKDlgLabel::SetPicture(const std::string& name) {
    static_cast<LabelImpl&>(GetImpl()).SetPicture(name);
}

const std::string& VRKDlgLabel::GetPicture() const {
    return static_cast<LabelImpl&>(GetImpl()).picture;
}

bool VRKDlgLabel::HasPictureLoaded() const {
    return !static_cast<LabelImpl&>(GetImpl()).pixmap.isNull();
}

VRKDlgPushButton::VRKDlgPushButton(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<ButtonImpl>()) {
    auto& impl = static_cast<ButtonImpl&>(GetImpl());
    QObject::connect(impl.Get(), &QPushButton::clicked, impl.Get(), [&impl] {
        if (impl.onPush) {
            impl.onPush();
        }
    });
}

void VRKDlgPushButton::SetPicture(const std::string& name) {
    static_cast<ButtonImpl&>(GetImpl()).SetPicture(name);
}

const std::string& VRKDlgPushButton::GetPicture() const {
    return static_cast<ButtonImpl&>(GetImpl()).picture;
}

void VRKDlgPushButton::SetOnPush(VRKDlgCallback callback) {
    static_cast<ButtonImpl&>(GetImpl()).onPush = std::move(callback);
}
