#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "support/TempFolder.h"

// A locale whose decimal separator is a comma (German, de_DE.UTF-8), built once per test program
// with localedef into a folder of its own and found through LOCPATH, so that the tests do not
// depend on which locales the machine has installed. localedef and the locale sources come with
// the Debian package "locales". Returns the folder to put in LOCPATH, or an empty string when the
// locale cannot be built (the caller fails the test: a missing dependency is not a pass).
inline const std::string& CommaLocaleFolder() {
    static const TempFolder folder("locale");
    static const std::string path = [] {
        const std::string command =
            "localedef -i de_DE -f UTF-8 '" + folder.Path() + "/de_DE.UTF-8' >/dev/null 2>&1";
        // localedef exits with 1 for warnings while still writing the locale.
        const int status = std::system(command.c_str());
        return (status == 0 || (WIFEXITED(status) && WEXITSTATUS(status) == 1)) ? folder.Path()
                                                                                : std::string();
    }();
    return path;
}

inline constexpr const char* kCommaLocale = "de_DE.UTF-8";
