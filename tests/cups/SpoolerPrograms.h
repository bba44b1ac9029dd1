#pragma once

// Where the spooler's own programs are on this machine: the scheduler, the two clients the test
// uses, the backend that sends a job to a printer's raw port, and the launcher the scheduler starts
// every filter and backend through. Debian keeps them under /usr/lib/cups (the package `cups`
// installs its backends in backend-available and links the ones enabled into backend); other
// systems under /usr/libexec/cups.

#include <unistd.h>

#include <initializer_list>
#include <string>

class SpoolerPrograms {
  public:
    // The programs found; `missing` names the first that is not there (then the others are
    // unusable).
    static SpoolerPrograms Find(std::string& missing) {
        SpoolerPrograms programs;
        const auto find = [&missing](std::initializer_list<const char*> places, std::string& path) {
            for (const char* place : places) {
                if (::access(place, X_OK) == 0) {
                    path = place;
                    return true;
                }
            }
            missing = *places.begin();
            return false;
        };
        find({"/usr/sbin/cupsd"}, programs.cupsd) &&
            find({"/usr/sbin/lpadmin"}, programs.lpadmin) && find({"/usr/bin/lp"}, programs.lp) &&
            find({"/usr/lib/cups/backend/socket", "/usr/lib/cups/backend-available/socket",
                  "/usr/libexec/cups/backend/socket"},
                 programs.socketBackend) &&
            find({"/usr/lib/cups/daemon/cups-exec", "/usr/libexec/cups/daemon/cups-exec"},
                 programs.cupsExec);
        return programs;
    }

    std::string cupsd;
    std::string lpadmin;
    std::string lp;
    std::string socketBackend;
    std::string cupsExec;
};
