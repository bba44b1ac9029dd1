#pragma once

#include <string>

// The page size a job is printed on, as the printer's PPD file describes the marked choice:
// its name ("A3", "Roll36in", "Custom"), its width and length and the margin of its imageable
// area, all in PostScript points (1/72 inch).
struct CupsPageSize {
    std::string name;
    double width = 0.0;
    double length = 0.0;
    double margin = 0.0;
};
