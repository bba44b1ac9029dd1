// vrk_peak_memory COMMAND [ARG ...]: runs the command with its output thrown away and prints its
// peak resident memory in KiB. The parent is this small program, so the figure is the command's
// own peak rather than that of a large parent it was forked from. Exit status 1 when the command
// fails.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: vrk_peak_memory COMMAND [ARG ...]\n");
        return 2;
    }
    const pid_t pid = ::fork();
    if (pid < 0) {
        std::perror("fork");
        return 2;
    }
    if (pid == 0) {
        const int null = ::open("/dev/null", O_RDWR);
        ::dup2(null, 0);
        ::dup2(null, 1);
        ::dup2(null, 2);
        ::execvp(argv[1], argv + 1);
        ::_exit(127);
    }
    int status = 0;
    struct rusage usage {};
    if (::wait4(pid, &status, 0, &usage) < 0) {
        std::perror("wait4");
        return 2;
    }
    std::printf("%ld\n", usage.ru_maxrss);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : 1;
}
