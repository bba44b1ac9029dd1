#pragma once

#include <string>

// `vrkplot dump PLOT`: prints the listing of a plot file, one instruction a line (PlotDecoder).
struct DumpCommand {
    // The plot file; - reads standard input.
    std::string plot;

    // Runs the command; the exit status.
    int Run() const;
};
