#include "host/dialogs/VRKDlgSlider.h"

#include <QSlider>
#include <cmath>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

// The slider's positions are the steps 0 to `steps`; values are computed from them.
class SliderImpl : public VRKDlgObjectImpl {
  public:
    SliderImpl() : VRKDlgObjectImpl(new QSlider(Qt::Horizontal)) {
        Get()->setRange(0, steps);
        QObject::connect(Get(), &QSlider::valueChanged, Get(), [this](int) {
            if (!fromCode && onChange) {
                onChange();
            }
        });
    }
    QSlider* Get() const { return static_cast<QSlider*>(widget.data()); }

    double min = 0, max = 100;
    int steps = 100;
    bool fromCode = false;
    VRKDlgCallback onChange;
};

SliderImpl& Impl(const VRKDlgSlider& slider) {
    return static_cast<SliderImpl&>(slider.GetImpl());
}

}  // namespace

VRKDlgSlider::VRKDlgSlider(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<SliderImpl>()) {}

bool VRKDlgSlider::SetRange(double min, double max, int steps) {
    if (!std::isfinite(min) || !std::isfinite(max) || max < min || steps < 1) {
        return false;
    }
    double value = GetValue();
    SliderImpl& impl = Impl(*this);
    impl.min = min;
    impl.max = max;
    impl.steps = steps;
    impl.fromCode = true;
    impl.Get()->setRange(0, steps);
    impl.fromCode = false;
    SetValue(value);
    return true;
}

void VRKDlgSlider::SetValue(double value) {
    SliderImpl& impl = Impl(*this);
    double position = 0;
    if (impl.max > impl.min && std::isfinite(value)) {
        position = std::round((value - impl.min) / (impl.max - impl.min) * impl.steps);
    } else if (value >= impl.max) {
        position = impl.steps;
    }
    position = std::clamp(position, 0.0, static_cast<double>(impl.steps));
    impl.fromCode = true;
    impl.Get()->setValue(static_cast<int>(position));
    impl.fromCode = false;
}

double VRKDlgSlider::GetValue() const {
    SliderImpl& impl = Impl(*this);
    int position = impl.Get()->value();
    if (position >= impl.steps) {
        return impl.max;
    }
    return impl.min + (impl.max - impl.min) * position / impl.steps;
}

void VRKDlgSlider::SetOnChange(VRKDlgCallback callback) {
    Impl(*this).onChange = std::move(callback);
}
