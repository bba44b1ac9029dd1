#pragma once

#include <string>

// Loads a driver library the way a host does: the library's static registrations enter its
// classes in the class dictionary as it loads. A driver named "VRKPrtDriverHPGL2" is the file
// "libVRKPrtDriverHPGL2.so", looked for in the folders of $VRK_DRIVER_PATH (colon-separated), then
// in "../lib" beside the running program, then where the dynamic linker looks. Loaded drivers
// stay loaded until the process ends.
namespace VRKDriverLoader {

// True when the driver is loaded (now or before); otherwise `error` says why not.
bool Load(const std::string& driverName, std::string& error);

}  // namespace VRKDriverLoader
