#include "host/dialogs/VRKDlgSlider.h"

#include <QSlider>
#include <cmath>

#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

// The slider keeps the value it was given, any value of its range; its positions divide each
// step into kPositionsPerStep, so that it shows a value between steps where it lies, and the
// keys move it by whole steps. A move by the user makes the value the position's.
constexpr int kPositionsPerStep = 1000;

class SliderImpl : public VRKDlgObjectImpl {
  public:
    SliderImpl() : VRKDlgObjectImpl(new QSlider(Qt::Horizontal)) {
        Configure();
        QObject::connect(Get(), &QSlider::valueChanged, Get(), [this](int position) {
            if (fromCode) {
                return;
            }
            value = min + (max - min) * position / (static_cast<double>(steps) * kPositionsPerStep);
            if (onChange) {
                onChange();
            }
        });
    }
    QSlider* Get() const { return static_cast<QSlider*>(widget.data()); }
    void Configure() {
        fromCode = true;
        Get()->setRange(0, steps * kPositionsPerStep);
        Get()->setSingleStep(kPositionsPerStep);
        Get()->setPageStep(kPositionsPerStep);
        fromCode = false;
    }
    void Show() {
        const double span = max - min;
        const double position =
            span > 0 ? std::round((value - min) / span * steps * kPositionsPerStep) : 0.0;
        fromCode = true;
        Get()->setValue(static_cast<int>(position));
        fromCode = false;
    }

    double min = 0, max = 100;
    int steps = 100;
    double value = 0;
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
    // The positions of every step must fit the int the slider counts in.
    if (!std::isfinite(min) || !std::isfinite(max) || max < min || steps < 1 || steps > 1000000) {
        return false;
    }
    const double value = GetValue();
    SliderImpl& impl = Impl(*this);
    impl.min = min;
    impl.max = max;
    impl.steps = steps;
    impl.Configure();
    SetValue(value);
    return true;
}

void VRKDlgSlider::SetValue(double value) {
    SliderImpl& impl = Impl(*this);
    impl.value = std::isfinite(value) ? std::clamp(value, impl.min, impl.max)
                                      : (value > 0 ? impl.max : impl.min);
    impl.Show();
}

double VRKDlgSlider::GetValue() const {
    return Impl(*this).value;
}

void VRKDlgSlider::SetOnChange(VRKDlgCallback callback) {
    Impl(*this).onChange = std::move(callback);
}
