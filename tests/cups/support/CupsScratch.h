#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/TempFolder.h"

// A private spooler layout for the spooler's own programs (cupsfilter, cupstestppd, a private
// cupsd), so that none of them reads the system's configuration or filters:
//
//   bin/filter/vrkplot-cups   a link to the built filter (the ServerBin)
//   root/vrkplot.types        the MIME type of job files, and vrkplot.convs (the ServerRoot)
//   root/cups-files.conf      ServerBin, ServerRoot, and the installed DataDir
//
// Everything goes when the object goes.
class CupsScratch {
  public:
    // `filter`: the built filter; `sources`: the folder of vrkplot.types and vrkplot.convs.
    CupsScratch(const std::string& filter, const std::string& sources) : folder_("cups") {
        std::filesystem::create_directories(ServerBin() + "/filter");
        std::filesystem::create_directories(ServerRoot());
        std::filesystem::create_symlink(filter, ServerBin() + "/filter/vrkplot-cups");
        for (const char* name : {"vrkplot.types", "vrkplot.convs"}) {
            std::filesystem::copy_file(sources + "/" + name, ServerRoot() + "/" + name);
        }
        std::ofstream conf(FilesConf());
        conf << "ServerBin " << ServerBin() << "\nServerRoot " << ServerRoot()
             << "\nDataDir /usr/share/cups\n";
    }

    const std::string& Path() const { return folder_.Path(); }
    std::string ServerBin() const { return folder_.File("bin"); }
    std::string ServerRoot() const { return folder_.File("root"); }
    // The file to give cupsfilter with -c.
    std::string FilesConf() const { return folder_.File("root/cups-files.conf"); }
    // A file in the scratch folder, for documents and outputs.
    std::string File(const std::string& name) const { return folder_.File(name); }

    // The path of a program of the spooler's, or empty when it is not installed.
    static std::string FindProgram(const std::string& name) {
        for (const char* folder : {"/usr/sbin", "/usr/bin", "/sbin", "/bin"}) {
            const std::string path = std::string(folder) + "/" + name;
            if (::access(path.c_str(), X_OK) == 0) {
                return path;
            }
        }
        return {};
    }

  private:
    TempFolder folder_;
};
