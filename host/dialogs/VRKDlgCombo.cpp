#include "host/dialogs/VRKDlgCombo.h"

#include <QColor>
#include <QComboBox>
#include <QPainter>
#include <algorithm>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

class ComboImpl : public VRKDlgObjectImpl {
  public:
    ComboImpl() : VRKDlgObjectImpl(new QComboBox) {
        QObject::connect(Get(), &QComboBox::activated, Get(), [this](int) {
            if (onSelect) {
                onSelect();
            }
        });
    }
    QComboBox* Get() const { return static_cast<QComboBox*>(widget.data()); }
    bool Has(int index) const { return index >= 0 && index < Get()->count(); }

    VRKDlgCallback onSelect;
};

ComboImpl& Impl(const VRKDlgCombo& combo) {
    return static_cast<ComboImpl&>(combo.GetImpl());
}

// A square of the colour with a dark border.
QIcon Swatch(const QColor& color) {
    QPixmap square(16, 16);
    square.fill(color);
    QPainter painter(&square);
    painter.setPen(Qt::darkGray);
    painter.drawRect(0, 0, 15, 15);
    return QIcon(square);
}

QColor ClampedColor(int red, int green, int blue) {
    return QColor(std::clamp(red, 0, 255), std::clamp(green, 0, 255), std::clamp(blue, 0, 255));
}

}  // namespace

VRKDlgCombo::VRKDlgCombo(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<ComboImpl>()) {}

int VRKDlgCombo::AppendLine(const std::string& text) {
    Impl(*this).Get()->addItem(VRKDlgQString(text));
    return GetLineCount() - 1;
}

int VRKDlgCombo::AppendLine(const std::string& text, int red, int green, int blue) {
    QColor color = ClampedColor(red, green, blue);
    Impl(*this).Get()->addItem(Swatch(color), VRKDlgQString(text), color);
    return GetLineCount() - 1;
}

bool VRKDlgCombo::SetLine(int index, const std::string& text) {
    if (index == GetLineCount()) {
        AppendLine(text);
        return true;
    }
    if (!Impl(*this).Has(index)) {
        return false;
    }
    QComboBox* combo = Impl(*this).Get();
    combo->setItemText(index, VRKDlgQString(text));
    combo->setItemIcon(index, QIcon());
    combo->setItemData(index, QVariant());
    return true;
}

bool VRKDlgCombo::SetLine(int index, const std::string& text, int red, int green, int blue) {
    if (index == GetLineCount()) {
        AppendLine(text, red, green, blue);
        return true;
    }
    if (!Impl(*this).Has(index)) {
        return false;
    }
    QComboBox* combo = Impl(*this).Get();
    QColor color = ClampedColor(red, green, blue);
    combo->setItemText(index, VRKDlgQString(text));
    combo->setItemIcon(index, Swatch(color));
    combo->setItemData(index, color);
    return true;
}

std::string VRKDlgCombo::GetLine(int index) const {
    if (!Impl(*this).Has(index)) {
        return {};
    }
    return Impl(*this).Get()->itemText(index).toStdString();
}

bool VRKDlgCombo::GetLineColor(int index, int& red, int& green, int& blue) const {
    if (!Impl(*this).Has(index)) {
        return false;
    }
    QVariant data = Impl(*this).Get()->itemData(index);
    if (!data.canConvert<QColor>() || !data.isValid()) {
        return false;
    }
    QColor color = data.value<QColor>();
    red = color.red();
    green = color.green();
    blue = color.blue();
    return true;
}

void VRKDlgCombo::ClearLines() {
    Impl(*this).Get()->clear();
}

int VRKDlgCombo::GetLineCount() const {
    return Impl(*this).Get()->count();
}

void VRKDlgCombo::SetSelect(int index) {
    Impl(*this).Get()->setCurrentIndex(Impl(*this).Has(index) ? index : -1);
}

int VRKDlgCombo::GetSelect() const {
    return Impl(*this).Get()->currentIndex();
}

void VRKDlgCombo::SetOnSelect(VRKDlgCallback callback) {
    Impl(*this).onSelect = std::move(callback);
}
