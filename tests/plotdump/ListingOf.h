#pragma once

// The listing of plot bytes, as `vrkplot dump` prints it, for the decoder's tests.

#include <sstream>
#include <string>

#include "tools/plotdump/PlotDecoder.h"

inline std::string ListingOf(const std::string& plot) {
    std::stringbuf bytes(plot, std::ios::in);
    std::ostringstream listing;
    PlotDecoder(bytes, listing).Decode();
    return listing.str();
}

// The listing without its last line (the summary).
inline std::string LinesOf(const std::string& plot) {
    std::string listing = ListingOf(plot);
    listing.pop_back();
    return listing.substr(0, listing.rfind('\n') + 1);
}
