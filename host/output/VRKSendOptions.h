#pragma once

#include <string>

// How a plot is sent to a destination that is not a file.
struct VRKSendOptions {
    // Seconds a connection may take to open, and a send may go on without a single byte being
    // taken, before it fails. 0 waits for ever. Programs give 30 to a socket by default, and 0 to
    // a serial line, where a plotter may hold XOFF as long as it needs to draw.
    double timeoutSeconds = 30;
    // The job's title for the spooler (lp -t); empty gives none.
    std::string title;
};
