#pragma once

#include <string>

// A pen plotter draws only where a pen goes down. An HP-GL plot without a single pen-down move is
// blank paper: the job never chose a colour (pen 0 is no pen), or the pen table it relies on is
// missing. Plotting still succeeds, but the user is told before the plot goes to a plotter.
namespace EmptyPlotCheck {

// True when the HP-GL plot in the file at `path` has no pen-down move ("PD"); false also when
// the file cannot be read (nothing to say then).
bool DrawsNothing(const std::string& path);

// The warning for such a plot, with the likely cause: the pen table file the environment asks
// for and that is missing, or no colour chosen. `program` starts the line ("vrkplot: ").
std::string Warning(const std::string& program);

}  // namespace EmptyPlotCheck
