#pragma once

#include <string>

// Writes the plot in the file `path` `copies` times to the open file descriptor `fd` (the
// filter's standard output), each copy a complete job. False with `error` set when the file
// cannot be read or a write fails.
namespace PlotCopies {

bool Write(const std::string& path, int copies, int fd, std::string& error);

}  // namespace PlotCopies
