#pragma once

#include <optional>
#include <string>

// The process environment and the system's temporary directory, as the host offers them to
// drivers.
namespace VRKEnvironment {

// The value of an environment variable, or nothing when it is not defined. A variable defined
// with an empty value is defined.
std::optional<std::string> Get(const char* name);
bool IsDefined(const char* name);

// The temporary directory with its trailing separator, ready for a file name to be appended:
// $TMPDIR with '/' added when it lacks one, else "/tmp/".
std::string TemporaryDirectory();

}  // namespace VRKEnvironment
