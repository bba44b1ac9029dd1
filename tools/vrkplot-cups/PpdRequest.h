#pragma once

#include <string>

#include "tools/vrkplot-cups/CupsJobRequest.h"

// Reads the printer's PPD file for one job: the printer language (*VRKLanguage), the marked
// choice of every option after the PPD's defaults and the job's options (`options`, the
// filter's fifth argument) are marked, the job's options themselves, and the marked page size.
// The only place that talks to the spooler's PPD interface.
namespace PpdRequest {

// False with `error` set when the file cannot be read as a PPD or names no language.
bool Read(const std::string& path, const std::string& options, CupsJobRequest& request,
          std::string& error);

}  // namespace PpdRequest
