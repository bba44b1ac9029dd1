#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <vector>

// Runs a program with `args` (args[0] is the program's path) in `folder`, standard output to
// `stdoutPath` and standard error to `stderrPath` (created or truncated), standard input from
// `stdinPath`, with `env` ("NAME=value") added to the environment. Returns the exit status, or -1
// when the program did not exit normally.
inline int RunProgram(const std::vector<std::string>& args, const std::string& folder,
                      const std::string& stdoutPath, const std::string& stderrPath,
                      const std::vector<std::string>& env = {},
                      const std::string& stdinPath = "/dev/null") {
    const pid_t pid = ::fork();
    if (pid < 0) {
        return -1;
    }
    if (pid == 0) {
        const int out = ::open(stdoutPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = ::open(stderrPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int in = ::open(stdinPath.c_str(), O_RDONLY);
        if (out < 0 || err < 0 || in < 0 || ::dup2(out, 1) < 0 || ::dup2(err, 2) < 0 ||
            ::dup2(in, 0) < 0 || ::chdir(folder.c_str()) != 0) {
            ::_exit(127);
        }
        for (const std::string& variable : env) {
            ::putenv(const_cast<char*>(variable.c_str()));
        }
        std::vector<char*> argv;
        for (const std::string& arg : args) {
            argv.push_back(const_cast<char*>(arg.c_str()));
        }
        argv.push_back(nullptr);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
