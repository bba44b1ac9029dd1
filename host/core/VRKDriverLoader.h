#pragma once

#include <string>
#include <vector>

// Loads a driver library the way a host does: the library's static registrations enter its
// classes in the class dictionary as it loads. A driver named "VRKPrtDriverHPGL2" is the file
// "libVRKPrtDriverHPGL2.so", looked for in the folders of $VRK_DRIVER_PATH (colon-separated), then
// in "../lib" beside the running program, then in the folder of the library that holds this
// loader (drivers are installed beside the host libraries, wherever the program itself is), then
// where the dynamic linker looks. Loaded drivers stay loaded until the process ends.
namespace VRKDriverLoader {

// True when the driver is loaded (now or before); otherwise `error` says why not.
bool Load(const std::string& driverName, std::string& error);

// The files Load tries for a driver, in order; the last one is the bare file name, for the
// dynamic linker's own search.
std::vector<std::string> SearchPath(const std::string& driverName);

// The folder of the library (or program) that holds the loader, as the dynamic linker loaded it;
// empty when it cannot be told.
std::string LoaderFolder();

}  // namespace VRKDriverLoader
