#include "tools/vrkplot/EmptyPlotCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <string_view>

#include "host/core/VRKEnvironment.h"

namespace EmptyPlotCheck {

bool DrawsNothing(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    // One byte of the previous block is kept before the next, so that a "PD" cut between two
    // blocks is found.
    char block[1 + 65536];
    std::size_t kept = 0;
    bool found = false;
    bool readFailed = false;
    for (;;) {
        const ssize_t n = ::read(fd, block + kept, sizeof block - kept);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            readFailed = n < 0;
            break;
        }
        const std::string_view text(block, kept + static_cast<std::size_t>(n));
        if (text.find("PD") != std::string_view::npos) {
            found = true;
            break;
        }
        block[0] = text.back();
        kept = 1;
    }
    ::close(fd);
    return !found && !readFailed;
}

std::string Warning(const std::string& program) {
    std::string warning = program + "warning: the plot draws nothing: no pen ever goes down";
    if (VRKEnvironment::IsDefined("HPGL2_PEN_TABLE") && !VRKEnvironment::IsDefined("TestPrint")) {
        const std::string table = VRKEnvironment::TemporaryDirectory() + "PenTable";
        struct stat info {};
        if (::stat(table.c_str(), &info) != 0) {
            return warning + " (HPGL2_PEN_TABLE is set, but there is no pen table file " + table +
                   ", so no colour finds a pen)";
        }
    }
    return warning + " (the job must select a colour with SelectDrawColor before it draws: " +
           "pen 0 is no pen)";
}

}  // namespace EmptyPlotCheck
