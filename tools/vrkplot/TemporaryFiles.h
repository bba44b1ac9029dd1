#pragma once

#include <string>

// The temporary file of the plot being made, removed when the program is interrupted (Ctrl-C,
// a hang-up, a kill), so that an interrupted plot leaves no ".NAME.XXXXXX.tmp" behind.
namespace TemporaryFiles {

// Installs the handlers of SIGINT, SIGTERM and SIGHUP: they remove the file and end the program
// as the signal would have.
void RemoveOnSignals();
// The file to remove; empty for none. Paths longer than the handler's room are not kept.
void Set(const std::string& path);

}  // namespace TemporaryFiles
