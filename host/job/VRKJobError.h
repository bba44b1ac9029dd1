#pragma once

#include <string>

// Why a job could not be played: the job file, the line (1 for the first line; 0 when the error
// belongs to no line, such as a file that cannot be opened or a plot that cannot be written) and
// what is wrong.
struct VRKJobError {
    std::string file;
    int line = 0;
    std::string message;

    // "FILE:LINE: message", or "FILE: message" without a line: the form compilers use, so that
    // editors can jump to the line.
    std::string ToString() const {
        std::string text = file;
        if (line > 0) {
            text += ':';
            text += std::to_string(line);
        }
        text += ": ";
        text += message;
        return text;
    }
};
