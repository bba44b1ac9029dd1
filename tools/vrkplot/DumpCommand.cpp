#include "tools/vrkplot/DumpCommand.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/plotdump/PlotDecoder.h"

namespace {

constexpr int kFailure = 2;

}  // namespace

int DumpCommand::Run() const {
    std::ifstream file;
    std::streambuf* source = std::cin.rdbuf();
    if (plot != "-") {
        std::error_code error;
        if (std::filesystem::is_directory(plot, error)) {
            std::cerr << "vrkplot: " << plot << ": cannot read: " << std::strerror(EISDIR) << '\n';
            return kFailure;
        }
        errno = 0;
        file.open(plot, std::ios::binary);
        if (!file) {
            std::cerr << "vrkplot: " << plot
                      << ": cannot open: " << std::strerror(errno != 0 ? errno : ENOENT) << '\n';
            return kFailure;
        }
        source = file.rdbuf();
    }
    PlotDecoder(*source, std::cout).Decode();
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "vrkplot: standard output: cannot write the listing\n";
        return kFailure;
    }
    return 0;
}
