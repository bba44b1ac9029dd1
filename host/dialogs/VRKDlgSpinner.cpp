#include "host/dialogs/VRKDlgSpinner.h"

#include <QDoubleSpinBox>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

// Whether `format` holds exactly one conversion of a double, with "%%" allowed around it.
bool IsDoubleFormat(const std::string& format) {
    int conversions = 0;
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            continue;
        }
        ++i;
        if (i < format.size() && format[i] == '%') {
            continue;
        }
        while (i < format.size() && std::strchr("-+ #0", format[i]) != nullptr) {
            ++i;
        }
        while (i < format.size() && std::isdigit(static_cast<unsigned char>(format[i]))) {
            ++i;
        }
        if (i < format.size() && format[i] == '.') {
            ++i;
            while (i < format.size() && std::isdigit(static_cast<unsigned char>(format[i]))) {
                ++i;
            }
        }
        if (i >= format.size() || std::strchr("fFeEgG", format[i]) == nullptr) {
            return false;
        }
        ++conversions;
    }
    return conversions == 1;
}

std::string Format(const std::string& format, double value) {
    char buffer[512];
    int length = std::snprintf(buffer, sizeof buffer, format.c_str(), value);
    if (length < 0) {
        return {};
    }
    return std::string(buffer, std::min(static_cast<size_t>(length), sizeof buffer - 1));
}

// The first number in the text, whatever stands before and after it.
bool ReadNumber(const QString& text, double& value) {
    std::string bytes = text.toStdString();
    for (size_t i = 0; i < bytes.size(); ++i) {
        char c = bytes[i];
        if (std::isdigit(static_cast<unsigned char>(c)) || c == '-' || c == '+' || c == '.') {
            char* end = nullptr;
            value = std::strtod(bytes.c_str() + i, &end);
            if (end != bytes.c_str() + i && std::isfinite(value)) {
                return true;
            }
        }
    }
    return false;
}

class SpinBox : public QDoubleSpinBox {
  public:
    QString textFromValue(double value) const override {
        return QString::fromStdString(Format(format, value));
    }
    double valueFromText(const QString& text) const override {
        double value = 0;
        return ReadNumber(text, value) ? value : this->value();
    }
    QValidator::State validate(QString& text, int&) const override {
        double value = 0;
        return ReadNumber(text, value) ? QValidator::Acceptable : QValidator::Intermediate;
    }
    void stepBy(int steps) override {
        stepping = true;
        QDoubleSpinBox::stepBy(steps);
        stepping = false;
        const VRKDlgCallback& callback = steps > 0 ? onUp : onDown;
        if (callback) {
            callback();
        }
    }

    std::string format = "%g";
    bool stepping = false;
    bool fromCode = false;
    VRKDlgCallback onModify, onUp, onDown;
};

class SpinnerImpl : public VRKDlgObjectImpl {
  public:
    SpinnerImpl() : VRKDlgObjectImpl(new SpinBox) {
        Get()->setDecimals(12);
        Get()->setRange(0, 100);
        Get()->setSingleStep(1);
        Get()->setKeyboardTracking(true);
        QObject::connect(Get(), &QDoubleSpinBox::valueChanged, Get(), [this](double) {
            SpinBox* box = Get();
            if (!box->fromCode && !box->stepping && box->onModify) {
                box->onModify();
            }
        });
    }
    SpinBox* Get() const { return static_cast<SpinBox*>(widget.data()); }
};

SpinBox* Box(const VRKDlgSpinner& spinner) {
    return static_cast<SpinnerImpl&>(spinner.GetImpl()).Get();
}

}  // namespace

VRKDlgSpinner::VRKDlgSpinner(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<SpinnerImpl>()) {}

bool VRKDlgSpinner::SetRange(double min, double max, int steps) {
    if (!std::isfinite(min) || !std::isfinite(max) || max < min || steps < 1) {
        return false;
    }
    SpinBox* box = Box(*this);
    box->fromCode = true;
    box->setRange(min, max);
    box->setSingleStep((max - min) / steps);
    box->fromCode = false;
    return true;
}

double VRKDlgSpinner::GetMin() const {
    return Box(*this)->minimum();
}

double VRKDlgSpinner::GetMax() const {
    return Box(*this)->maximum();
}

double VRKDlgSpinner::GetStep() const {
    return Box(*this)->singleStep();
}

bool VRKDlgSpinner::SetFormat(const std::string& format) {
    if (!IsDoubleFormat(format)) {
        return false;
    }
    SpinBox* box = Box(*this);
    box->format = format;
    box->fromCode = true;
    // Shows the value again in the new form.
    double value = box->value();
    box->setValue(box->minimum() == value ? box->maximum() : box->minimum());
    box->setValue(value);
    box->fromCode = false;
    return true;
}

std::string VRKDlgSpinner::GetText() const {
    return Box(*this)->text().toStdString();
}

void VRKDlgSpinner::SetValue(double value) {
    if (std::isnan(value)) {
        return;
    }
    SpinBox* box = Box(*this);
    box->fromCode = true;
    box->setValue(value);
    box->fromCode = false;
}

double VRKDlgSpinner::GetValue() const {
    return Box(*this)->value();
}

void VRKDlgSpinner::SetOnModify(VRKDlgCallback callback) {
    Box(*this)->onModify = std::move(callback);
}

void VRKDlgSpinner::SetOnUp(VRKDlgCallback callback) {
    Box(*this)->onUp = std::move(callback);
}

void VRKDlgSpinner::SetOnDown(VRKDlgCallback callback) {
    Box(*this)->onDown = std::move(callback);
}
