#pragma once

#include <string>

class VRKDlgDialog;

// The application object of the toolkit underneath, made on first need (the first dialog, or
// Ensure()) and kept for the rest of the process. Everything of the toolkit runs on the thread
// that made it.
class VRKDlgApplication {
  public:
    // Whether dialogs can be shown: false, with the reason in `why`, when no display or platform
    // is usable. Never hangs and never ends the process; ask it before making a dialog. When it is
    // false, dialogs can still be made and driven, on the invisible "offscreen" platform.
    static bool Available(std::string& why);

    // The decision behind Available(), from the values of QT_QPA_PLATFORM, DISPLAY and
    // WAYLAND_DISPLAY (null when not set) and whether the platform plugin named by
    // QT_QPA_PLATFORM (or the default one) is installed.
    static bool PlatformUsable(const char* qpaPlatform, const char* display,
                               const char* waylandDisplay, bool pluginInstalled, std::string& why);

    // Makes the application object when there is none yet.
    static void Ensure();

    // Shows the dialog and runs the event loop until the dialog ends (RequestDelete, or it is
    // deleted). Returns 1 when it ended through OK, 0 otherwise.
    static int Run(VRKDlgDialog& dialog);

    // Handles the events waiting now, without waiting for more.
    static void ProcessEvents();
};
