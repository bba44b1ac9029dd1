#pragma once

// The fixture of the vrkplot tests: runs the built program (VRKPLOT_PATH, from the build) in a
// temporary working folder and keeps its standard output and error.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RunProgram.h"
#include "support/TempFolder.h"

class Vrkplot : public ::testing::Test {
  protected:
    TempFolder folder{"vrkplot"};  // the working folder: jobs and plots
    TempFolder io{"vrkplot-io"};   // the program's standard output and error
    std::string out;
    std::string err;

    // Runs vrkplot in the working folder and returns its exit status. Standard output goes to
    // `stdoutPath` when given (and `out` is then empty), standard input comes from `stdinPath`.
    int Run(std::vector<std::string> args, const std::vector<std::string>& env = {},
            const std::string& stdoutPath = "", const std::string& stdinPath = "/dev/null") {
        args.insert(args.begin(), VRKPLOT_PATH);
        const std::string outPath = stdoutPath.empty() ? io.File("stdout") : stdoutPath;
        const int status =
            RunProgram(args, folder.Path(), outPath, io.File("stderr"), env, stdinPath);
        out = stdoutPath.empty() ? ReadFileBytes(outPath) : std::string();
        err = ReadFileBytes(io.File("stderr"));
        return status;
    }

    std::string Job(const std::string& name, const std::string& text) {
        folder.Write(name, text);
        return name;
    }
};
