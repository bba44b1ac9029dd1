// vrkplot's output rules: files whole or not at all with their mode kept, links followed,
// devices and FIFOs written in place and never replaced, read-only files refused.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/Printable.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

namespace fs = std::filesystem;

const std::string kA4Frame =
    "\x1b"
    "E\x1b%0BINECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;";

mode_t modeOf(const std::string& path) {
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 ? info.st_mode : 0;
}

// Reads a FIFO on a thread of its own until the writer closes it.
class FifoReader {
  public:
    explicit FifoReader(const std::string& path)
        : thread_([this, path] {
              std::ifstream in(path, std::ios::binary);
              std::ostringstream all;
              all << in.rdbuf();
              bytes_ = all.str();
          }) {}
    const std::string& Bytes() {
        thread_.join();
        return bytes_;
    }

  private:
    std::string bytes_;
    std::thread thread_;
};

TEST_F(Vrkplot, FullDeviceIsReportedAndStaysADevice) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "/dev/full"}), 2);
    EXPECT_EQ(err, "vrkplot: /dev/full: No space left on device\n");
    EXPECT_TRUE(S_ISCHR(modeOf("/dev/full")));
    EXPECT_EQ(folder.Listing(), "a4.job\n");
    // Sent while it is made, the same.
    EXPECT_EQ(Run({"a4.job", "-o", "/dev/full", "--stream"}), 2);
    EXPECT_EQ(err, "vrkplot: /dev/full: No space left on device\n");
    EXPECT_TRUE(S_ISCHR(modeOf("/dev/full")));
}

TEST_F(Vrkplot, NullDeviceTakesThePlotInPlace) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "/dev/null"}), 0) << err;
    EXPECT_EQ(out, "a4.job -> /dev/null (HPGL2, 74 bytes)\n");
    EXPECT_TRUE(S_ISCHR(modeOf("/dev/null")));
}

TEST_F(Vrkplot, FifoIsWrittenInPlace) {
    Job("a4.job", "Begin\nMoveTo 1 2\nLineTo 3 4\nEnd\n");
    ASSERT_EQ(Run({"a4.job", "-o", "file.plt", "-q"}), 0) << err;
    const std::string expected = ReadFileBytes(folder.File("file.plt"));
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0644), 0);
    for (const char* stream : {"--stream", "-q"}) {
        SCOPED_TRACE(stream);
        FifoReader reader(folder.File("pipe"));
        EXPECT_EQ(Run({"a4.job", "-o", "pipe", stream}), 0) << err;
        EXPECT_BYTES(expected, reader.Bytes());
        EXPECT_TRUE(S_ISFIFO(modeOf(folder.File("pipe"))));
    }
    EXPECT_EQ(folder.Listing(), "a4.job\nfile.plt\npipe\n");
}

TEST_F(Vrkplot, AFailedJobSendsNothingToADevice) {
    Job("bad.job", "Begin\nMoveTo 1 2\nFrobnicate\nEnd\n");
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0644), 0);
    // Nothing opens the FIFO for writing, so a reader would wait for ever: the job fails first.
    EXPECT_EQ(Run({"bad.job", "-o", "pipe"}), 2);
    EXPECT_EQ(err, "bad.job:3: unknown verb 'Frobnicate'\n");
    EXPECT_TRUE(S_ISFIFO(modeOf(folder.File("pipe"))));
}

TEST_F(Vrkplot, SymlinkIsFollowedAndKept) {
    Job("a4.job", "Begin\nEnd\n");
    fs::create_directory(folder.File("plots"));
    folder.Write("plots/target.plt", "an older plot");
    fs::create_symlink("plots/target.plt", folder.File("link.plt"));
    EXPECT_EQ(Run({"a4.job", "-o", "link.plt"}), 0) << err;
    EXPECT_TRUE(S_ISLNK(modeOf(folder.File("link.plt"))));
    EXPECT_EQ(fs::read_symlink(folder.File("link.plt")), "plots/target.plt");
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("plots/target.plt")));
    // The temporary file was made beside the target, and is gone.
    EXPECT_EQ(folder.Listing(), "a4.job\nlink.plt\nplots\n");
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder.File("plots"))) {
        ++entries;
    }
    EXPECT_EQ(entries, 1u);
}

TEST_F(Vrkplot, LinkToAFileThatDoesNotExistCreatesIt) {
    Job("a4.job", "Begin\nEnd\n");
    fs::create_symlink("made.plt", folder.File("dangling.plt"));
    fs::create_symlink("dangling.plt", folder.File("chain.plt"));
    EXPECT_EQ(Run({"a4.job", "-o", "chain.plt"}), 0) << err;
    EXPECT_TRUE(S_ISLNK(modeOf(folder.File("chain.plt"))));
    EXPECT_TRUE(S_ISLNK(modeOf(folder.File("dangling.plt"))));
    EXPECT_BYTES(kA4Frame, ReadFileBytes(folder.File("made.plt")));
}

TEST_F(Vrkplot, LinkLoopIsAnError) {
    Job("a4.job", "Begin\nEnd\n");
    fs::create_symlink("b.plt", folder.File("a.plt"));
    fs::create_symlink("a.plt", folder.File("b.plt"));
    EXPECT_EQ(Run({"a4.job", "-o", "a.plt"}), 2);
    EXPECT_EQ(err, "vrkplot: a.plt: Too many levels of symbolic links\n");
}

TEST_F(Vrkplot, ExistingFileKeepsItsMode) {
    Job("a4.job", "Begin\nEnd\n");
    for (const mode_t mode : {0600, 0640, 0755, 0200}) {
        SCOPED_TRACE(mode);
        const std::string path = folder.Write("kept.plt", "an older plot");
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        EXPECT_EQ(Run({"a4.job", "-o", "kept.plt"}), 0) << err;
        EXPECT_EQ(modeOf(path) & 07777, mode);
        EXPECT_BYTES(kA4Frame, ReadFileBytes(path));
    }
}

TEST_F(Vrkplot, NewFileGetsTheModeOfANewFile) {
    Job("a4.job", "Begin\nEnd\n");
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(Run({"a4.job", "-o", "new.plt"}), 0) << err;
    EXPECT_EQ(modeOf(folder.File("new.plt")) & 07777, 0666 & ~mask);
}

TEST_F(Vrkplot, ReadOnlyFileIsRefusedAndUntouched) {
    Job("a4.job", "Begin\nEnd\n");
    const std::string path = folder.Write("locked.plt", "a plot to keep");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(Run({"a4.job", "-o", "locked.plt"}), 2);
    EXPECT_EQ(err, "vrkplot: locked.plt: the file is read-only (mode 0444); it is left as it is\n");
    EXPECT_EQ(ReadFileBytes(path), "a plot to keep");
    EXPECT_EQ(modeOf(path) & 07777, 0444u);
    EXPECT_EQ(folder.Listing(), "a4.job\nlocked.plt\n");
    // A read-only file reached through a link, the same.
    fs::create_symlink("locked.plt", folder.File("link.plt"));
    EXPECT_EQ(Run({"a4.job", "-o", "link.plt"}), 2);
    EXPECT_EQ(err, "vrkplot: link.plt: the file is read-only (mode 0444); it is left as it is\n");
    EXPECT_EQ(ReadFileBytes(path), "a plot to keep");
}

TEST_F(Vrkplot, ReadOnlyFileIsRefusedBeforeAnyWork) {
    // The job is bad too, but the output is checked first: one message, about the output.
    Job("bad.job", "Begin\nFrobnicate\nEnd\n");
    const std::string path = folder.Write("bad.plt", "a plot to keep");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(Run({"bad.job"}), 2);
    EXPECT_EQ(err, "vrkplot: bad.plt: the file is read-only (mode 0444); it is left as it is\n");
}

TEST_F(Vrkplot, OutputThatIsAFolderOrABlockDevice) {
    Job("a4.job", "Begin\nEnd\n");
    fs::create_directory(folder.File("plots"));
    EXPECT_EQ(Run({"a4.job", "-o", "plots"}), 2);
    EXPECT_EQ(err, "vrkplot: plots: is a folder\n");
    EXPECT_EQ(Run({"a4.job", "-o", "plots/"}), 2);
    EXPECT_EQ(err, "vrkplot: plots/: names a folder, not a file\n");
    EXPECT_EQ(folder.Listing(), "a4.job\nplots\n");
}

TEST_F(Vrkplot, PlotOnStandardOutputOwnsIt) {
    // The driver prints the pen table it reads; with the plot on standard output those lines go
    // to standard error, so that the plot arrives as it would in a file.
    TempFolder tables{"vrkplot-tables"};
    tables.Write("PenTable", "1 0 0 0 0.5\n");
    Job("a4.job", "Begin\nMoveTo 1 1\nLineTo 20 20\nEnd\n");
    const std::vector<std::string> env = {"HPGL2_PEN_TABLE=1", "TMPDIR=" + tables.Path()};
    ASSERT_EQ(Run({"a4.job", "-l", "HPGL", "-o", "file.plt", "-q"}, env), 0) << err;
    EXPECT_NE(out.find("PenTable file for HPGL generation"), std::string::npos) << out;
    const std::string expected = ReadFileBytes(folder.File("file.plt"));
    for (const char* stream : {"-q", "--stream"}) {
        SCOPED_TRACE(stream);
        ASSERT_EQ(Run({"a4.job", "-l", "HPGL", "-o", "-", stream}, env), 0) << err;
        EXPECT_BYTES(expected, out);
        EXPECT_NE(err.find("PenTable file for HPGL generation"), std::string::npos) << err;
    }
}

TEST_F(Vrkplot, StandardOutputStreamed) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "-", "--stream"}), 0) << err;
    EXPECT_BYTES(kA4Frame, out);
    EXPECT_EQ(err, "a4.job -> standard output (HPGL2, 74 bytes)\n");
}

TEST_F(Vrkplot, SeveralJobsToOneDevice) {
    Job("one.job", "Begin\nEnd\n");
    Job("two.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"one.job", "two.job", "-o", "/dev/null"}), 0) << err;
    EXPECT_EQ(out,
              "one.job -> /dev/null (HPGL2, 74 bytes)\ntwo.job -> /dev/null (HPGL2, 74 bytes)\n");
    EXPECT_EQ(folder.Listing(), "one.job\ntwo.job\n");
}

TEST_F(Vrkplot, InterruptedSendLeavesNoTemporaryFile) {
    Job("a4.job", "Begin\nEnd\n");
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0644), 0);
    // Every signal that ends a program by default, Ctrl-C and Ctrl-\\ among them.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGALRM, SIGUSR1, SIGUSR2}) {
        SCOPED_TRACE(signal);
        TempFolder spool{"vrkplot-spool"};
        // The plot is made in the spool folder, then vrkplot waits for a reader of the FIFO
        // that never comes, until it is interrupted.
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            ::setenv("TMPDIR", spool.Path().c_str(), 1);
            // SIGQUIT would leave a core file behind.
            const struct rlimit noCore {};
            ::setrlimit(RLIMIT_CORE, &noCore);
            if (::chdir(folder.Path().c_str()) != 0) {
                ::_exit(127);
            }
            ::execl(VRKPLOT_PATH, VRKPLOT_PATH, "a4.job", "-o", "pipe", "-q",
                    static_cast<char*>(nullptr));
            ::_exit(127);
        }
        bool spooled = false;
        for (int i = 0; i < 500 && !spooled; ++i) {
            spooled = spool.Listing() != "";
            ::usleep(10000);
        }
        EXPECT_TRUE(spooled);
        ::usleep(100000);
        ::kill(pid, signal);
        int status = 0;
        ASSERT_EQ(::waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        EXPECT_EQ(spool.Listing(), "");
        EXPECT_TRUE(S_ISFIFO(modeOf(folder.File("pipe"))));
        EXPECT_EQ(folder.Listing(), "a4.job\npipe\n");
    }
}

}  // namespace
