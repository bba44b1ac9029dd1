#pragma once

#include <string>

#include "tools/vrkplot-cups/CupsJob.h"
#include "tools/vrkplot-cups/CupsJobRequest.h"

// Turns what the spooler asks for (the marked PPD choices and the job's options) into the
// language's settings element and the document layout, as docs/cups.md lists them.
//
// A choice the language's PPD does not offer is an error, as is a job option value that means
// nothing ("print-scaling=wide"): the job is refused before anything is plotted. An option the
// PPD leaves out keeps the setting of the queue's settings file, or the generator's default.
namespace CupsJobMapping {

// False with `error` set when the request cannot be plotted as asked.
bool Map(const CupsJobRequest& request, CupsJob& job, std::string& error);

}  // namespace CupsJobMapping
