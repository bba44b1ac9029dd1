#include "host/dialogs/VRKDlgApplication.h"

#include <QApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <clocale>
#include <cstdlib>
#include <cstring>

#include "host/dialogs/VRKDlgDialog.h"
#include "host/dialogs/qt/VRKDlgDialogImpl.h"

namespace {

bool IsSet(const char* value) {
    return value != nullptr && value[0] != '\0';
}

// The platform Qt would pick: the first of QT_QPA_PLATFORM's list, else xcb or wayland by the
// display variables.
std::string ChosenPlatform(const char* qpaPlatform, const char* display,
                           const char* waylandDisplay) {
    if (IsSet(qpaPlatform)) {
        std::string name(qpaPlatform);
        name = name.substr(0, name.find_first_of(";:"));
        return name;
    }
    if (IsSet(waylandDisplay) && !IsSet(display)) {
        return "wayland";
    }
    return "xcb";
}

bool PluginInstalled(const std::string& platform) {
    // Folders of plugins given to Qt by the environment are not second-guessed.
    if (IsSet(std::getenv("QT_PLUGIN_PATH")) || IsSet(std::getenv("QT_QPA_PLATFORM_PLUGIN_PATH"))) {
        return true;
    }
    QString folder = QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/";
    return QFileInfo::exists(folder + "libq" + QString::fromStdString(platform) + ".so");
}

}  // namespace

bool VRKDlgApplication::PlatformUsable(const char* qpaPlatform, const char* display,
                                       const char* waylandDisplay, bool pluginInstalled,
                                       std::string& why) {
    std::string platform = ChosenPlatform(qpaPlatform, display, waylandDisplay);
    if (!pluginInstalled) {
        why = "the Qt platform plugin '" + platform + "' is not installed";
        return false;
    }
    if (platform == "xcb" && !IsSet(display)) {
        why = IsSet(qpaPlatform)
                  ? "QT_QPA_PLATFORM asks for xcb but DISPLAY is not set"
                  : "no display: neither DISPLAY nor WAYLAND_DISPLAY is set (QT_QPA_PLATFORM="
                    "offscreen runs dialogs without one)";
        return false;
    }
    if (platform == "wayland" && !IsSet(waylandDisplay)) {
        why = "QT_QPA_PLATFORM asks for wayland but WAYLAND_DISPLAY is not set";
        return false;
    }
    why.clear();
    return true;
}

bool VRKDlgApplication::Available(std::string& why) {
    if (qApp != nullptr) {
        why.clear();
        return true;
    }
    const char* qpa = std::getenv("QT_QPA_PLATFORM");
    const char* display = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    return PlatformUsable(qpa, display, wayland,
                          PluginInstalled(ChosenPlatform(qpa, display, wayland)), why);
}

void VRKDlgApplication::Ensure() {
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
    std::string why;
    if (!Available(why)) {
        // Dialogs still work, unseen, rather than ending the process.
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    // Qt sets the C library's locale from the environment; the host's locale is given back, so
    // that numbers are read and written as before.
    std::string locale = std::setlocale(LC_ALL, nullptr);
    static int argc = 1;
    static char name[] = "vrkdialogs";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);  // kept for the rest of the process
    std::setlocale(LC_ALL, locale.c_str());
}

int VRKDlgApplication::Run(VRKDlgDialog& dialog) {
    return VRKDlgDialogImpl::Run(dialog);
}

void VRKDlgApplication::ProcessEvents() {
    if (QCoreApplication::instance() != nullptr) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}
