// Fuzz target: the plot decoder of `vrkplot dump`.
//
// Feeds: the input is a plot file, decoded by PlotDecoder from memory into a listing.
//
// Checks: no crash, leak, undefined behaviour or hang; the listing is made of whole lines, none
// longer than a few KiB, and ends with the summary line that gives the input's size; the listing
// grows at most linearly with the input; the same input gives the same listing again.

#include <cstdint>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "tools/plotdump/PlotDecoder.h"

namespace {

// No line is longer: the longest kept text (a PJL line or a label, 1024 bytes) escaped at four
// characters a byte, with its mnemonic and the count of what was left out.
constexpr std::size_t kLongestLine = 4 * 1024 + 64;
// Listing bytes per input byte at most: a PE pair of two bytes gives a line of some 60.
constexpr std::size_t kGrowth = 64;

std::string listingOf(const std::uint8_t* data, std::size_t size) {
    std::stringbuf plot(std::string(reinterpret_cast<const char*>(data), size), std::ios::in);
    std::ostringstream listing;
    PlotDecoder(plot, listing).Decode();
    return listing.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string listing = listingOf(data, size);
    if (listing.empty() || listing.back() != '\n') {
        vrkfuzz::Broken("a listing that does not end with a line break");
    }
    if (listing.size() > kGrowth * size + 256) {
        vrkfuzz::Broken("a listing of " + std::to_string(listing.size()) + " bytes for " +
                        std::to_string(size) + " bytes of plot");
    }
    std::size_t start = 0;
    std::string last;
    while (start < listing.size()) {
        const std::size_t end = listing.find('\n', start);
        if (end - start > kLongestLine) {
            vrkfuzz::Broken("a listing line of " + std::to_string(end - start) + " bytes");
        }
        last = listing.substr(start, end - start);
        start = end + 1;
    }
    if (last.rfind("end of plot: " + std::to_string(size) + " bytes, ", 0) != 0) {
        vrkfuzz::Broken("a listing whose last line is not the summary: " + last.substr(0, 200));
    }
    if (listingOf(data, size) != listing) {
        vrkfuzz::Broken("the same plot gives another listing");
    }
    return 0;
}
