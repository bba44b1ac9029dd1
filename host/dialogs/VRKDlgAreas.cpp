// The drawing area (VRKDlgWindows) and the colour swatch viewer.
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "host/dialogs/VRKDlgColorViewer.h"
#include "host/dialogs/VRKDlgContainer.h"
#include "host/dialogs/VRKDlgWindows.h"
#include "host/dialogs/qt/VRKDlgObjectImpl.h"

namespace {

class Area : public QWidget {
  public:
    void showEvent(QShowEvent* event) override {
        QWidget::showEvent(event);
        if (!created) {
            created = true;
            if (onCreated) {
                onCreated();
            }
        }
    }
    bool created = false;
    VRKDlgCallback onCreated;
};

class Swatch : public QWidget {
  public:
    Swatch() { setMinimumSize(24, 24); }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), shown);
        ++paints;
    }
    QColor shown = Qt::white;
    double red = 1, green = 1, blue = 1;
    int paints = 0;
};

Area* AreaOf(const VRKDlgWindows& windows) {
    return static_cast<Area*>(windows.GetImpl().widget.data());
}

Swatch* SwatchOf(const VRKDlgColorViewer& viewer) {
    return static_cast<Swatch*>(viewer.GetImpl().widget.data());
}

double Unit(double component) {
    return std::isnan(component) ? 0.0 : std::clamp(component, 0.0, 1.0);
}

}  // namespace

VRKDlgWindows::VRKDlgWindows(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<VRKDlgObjectImpl>(new Area)) {}

void VRKDlgWindows::SetMinimumSize(int width, int height) {
    AreaOf(*this)->setMinimumSize(std::max(width, 0), std::max(height, 0));
}

bool VRKDlgWindows::IsCreated() const {
    return AreaOf(*this)->created;
}

void VRKDlgWindows::SetOnCreated(VRKDlgCallback callback) {
    AreaOf(*this)->onCreated = std::move(callback);
}

VRKDlgColorViewer::VRKDlgColorViewer(VRKDlgContainer& parent, const std::string& key)
    : VRKDlgObject(&parent, key, std::make_unique<VRKDlgObjectImpl>(new Swatch)) {}

void VRKDlgColorViewer::SetBackgroundColor(double red, double green, double blue) {
    Swatch* swatch = SwatchOf(*this);
    swatch->red = Unit(red);
    swatch->green = Unit(green);
    swatch->blue = Unit(blue);
}

void VRKDlgColorViewer::GetBackgroundColor(double& red, double& green, double& blue) const {
    Swatch* swatch = SwatchOf(*this);
    red = swatch->red;
    green = swatch->green;
    blue = swatch->blue;
}

void VRKDlgColorViewer::Redraw() {
    Swatch* swatch = SwatchOf(*this);
    swatch->shown =
        QColor::fromRgbF(static_cast<float>(swatch->red), static_cast<float>(swatch->green),
                         static_cast<float>(swatch->blue));
    swatch->update();
}

int VRKDlgColorViewer::GetPaintCount() const {
    return SwatchOf(*this)->paints;
}
