// vrkplot sending plots: to a printer's TCP port, to the spooler and down a serial line, with the
// bytes identical to those of the plot file.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "support/LoopbackServer.h"
#include "support/Printable.h"
#include "support/PseudoTerminal.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

using Clock = std::chrono::steady_clock;

const std::string kA4Frame =
    "\x1b"
    "E\x1b%0BINECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;";

// A drawing in many thick strokes: in the HP-GL dialect each stroke is drawn as parallel pen
// strokes, so the plot is much larger than the job.
std::string thickLines(int count) {
    std::string job = "Begin\nSetDrawWidth 5\n";
    for (int i = 0; i < count; ++i) {
        job += "MoveTo 10 " + std::to_string(10 + i % 200) + "\nLineTo 200 " +
               std::to_string(10 + (i * 7) % 250) + "\n";
    }
    return job + "End\n";
}

TEST_F(Vrkplot, SocketGetsTheBytesOfThePlotFile) {
    Job("lines.job", thickLines(300));
    for (const char* language : {"HPGL2", "HPGL", "HP4000GL2"}) {
        SCOPED_TRACE(language);
        ASSERT_EQ(Run({"lines.job", "-l", language, "-o", "file.plt", "--job-name", "Plan 7"}), 0)
            << err;
        const std::string expected = ReadFileBytes(folder.File("file.plt"));
        for (const char* stream : {"-q", "--stream"}) {
            LoopbackServer server;
            EXPECT_EQ(Run({"lines.job", "-l", language, "-o", server.Url(), "--job-name", "Plan 7",
                           stream}),
                      0)
                << err;
            EXPECT_BYTES(expected, server.Received());
            EXPECT_EQ(server.Connections(), 1);
        }
    }
}

TEST_F(Vrkplot, SocketSaysWhatWasSent) {
    Job("a4.job", "Begin\nEnd\n");
    LoopbackServer server;
    EXPECT_EQ(Run({"a4.job", "-o", server.Url()}), 0) << err;
    EXPECT_EQ(out, "a4.job -> " + server.Url() + " (HPGL2, 74 bytes)\n");
    EXPECT_EQ(err, "");
}

TEST_F(Vrkplot, RefusedConnection) {
    Job("a4.job", "Begin\nEnd\n");
    int port = 0;
    {
        // A port that was just free: nothing listens there now.
        LoopbackServer gone;
        port = gone.Port();
    }
    const std::string url = "socket://127.0.0.1:" + std::to_string(port);
    const auto start = Clock::now();
    EXPECT_EQ(Run({"a4.job", "-o", url, "--timeout", "5"}), 2);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(err, "vrkplot: " + url + ": cannot connect to 127.0.0.1:" + std::to_string(port) +
                       ": Connection refused\n");
}

TEST_F(Vrkplot, PrinterThatStopsReading) {
    // Far more than the socket buffers of both sides hold.
    Job("lines.job", thickLines(20000));
    LoopbackServer server(LoopbackServer::Behaviour::kNeverRead, 4096);
    const auto start = Clock::now();
    EXPECT_EQ(Run({"lines.job", "-l", "HPGL", "-o", server.Url(), "--timeout", "1", "-q"}), 2);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(err.rfind("vrkplot: " + server.Url() + ": ", 0), 0u) << err;
    EXPECT_NE(err.find("1 second"), std::string::npos) << err;
}

TEST_F(Vrkplot, BadDestinations) {
    Job("a4.job", "Begin\nEnd\n");
    EXPECT_EQ(Run({"a4.job", "-o", "socket://"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: socket://: ", 0), 0u) << err;
    EXPECT_EQ(Run({"a4.job", "-o", "sockte://plotter"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: sockte://plotter: unknown kind of destination", 0), 0u) << err;
    EXPECT_EQ(Run({"a4.job", "-o", "serial:/dev/ttyS0?baud=12345"}), 2);
    EXPECT_EQ(err.rfind("vrkplot: serial:/dev/ttyS0?baud=12345: ", 0), 0u) << err;
    EXPECT_EQ(folder.Listing(), "a4.job\n");
}

// A fake spooler client: records its arguments and the plot, and answers as lp does.
class Spooler {
  public:
    Spooler(const TempFolder& folder, const std::string& answer, int status) {
        bin_ = folder.File("bin");
        std::filesystem::create_directory(bin_);
        const std::string script = "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + bin_ +
                                   "/args'\ncat > '" + bin_ + "/plot'\n" + answer + "\nexit " +
                                   std::to_string(status) + "\n";
        folder.Write("bin/lp", script);
        ::chmod((bin_ + "/lp").c_str(), 0755);
    }
    std::string Path() const {
        const char* path = std::getenv("PATH");
        return "PATH=" + bin_ + ":" + (path != nullptr ? path : "/usr/bin:/bin");
    }
    std::string Args() const { return ReadFileBytes(bin_ + "/args"); }
    std::string Plot() const { return ReadFileBytes(bin_ + "/plot"); }

  private:
    std::string bin_;
};

TEST_F(Vrkplot, SpoolerGetsTheRawPlot) {
    Job("a4.job", "Begin\nEnd\n");
    TempFolder tools{"vrkplot-lp"};
    Spooler lp(tools, "echo 'request id is plotroom-7 (1 file(s))'", 0);
    EXPECT_EQ(Run({"a4.job", "-o", "lp:plotroom"}, {lp.Path()}), 0) << err;
    EXPECT_EQ(lp.Args(), "-d\nplotroom\n-o\nraw\n-t\na4.job\n");
    EXPECT_BYTES(kA4Frame, lp.Plot());
    EXPECT_EQ(out,
              "a4.job -> lp:plotroom (HPGL2, 74 bytes): request id is plotroom-7 (1 file(s))\n");
}

TEST_F(Vrkplot, SpoolerFailureIsReported) {
    Job("a4.job", "Begin\nEnd\n");
    TempFolder tools{"vrkplot-lp"};
    Spooler lp(tools, "echo 'lp: The printer or class does not exist.' >&2", 1);
    EXPECT_EQ(Run({"a4.job", "-o", "lp:nowhere"}, {lp.Path()}), 2);
    EXPECT_EQ(err, "vrkplot: lp:nowhere: lp: The printer or class does not exist.\n");
    EXPECT_EQ(out, "");
}

TEST_F(Vrkplot, SerialPlotterPausesTheSendWithXoff) {
    Job("lines.job", thickLines(2000));
    ASSERT_EQ(Run({"lines.job", "-l", "HPGL", "-o", "file.plt"}), 0) << err;
    const std::string expected = ReadFileBytes(folder.File("file.plt"));
    ASSERT_GT(expected.size(), 500000u);
    PseudoTerminal plotter;
    ASSERT_TRUE(plotter.HoldTerminal());
    std::string received;
    bool quietWhilePaused = false;
    std::thread reader([&] {
        using std::chrono::milliseconds;
        plotter.ReadUntil(1000, milliseconds(20000), received);
        const char xoff = 0x13, xon = 0x11;
        EXPECT_EQ(::write(plotter.Master(), &xoff, 1), 1);
        // What was on its way when the plotter said stop still arrives; then nothing.
        plotter.ReadFor(milliseconds(200), received);
        quietWhilePaused = plotter.ReadFor(milliseconds(400), received) == 0;
        EXPECT_EQ(::write(plotter.Master(), &xon, 1), 1);
        plotter.ReadUntil(expected.size(), milliseconds(30000), received);
    });
    EXPECT_EQ(Run({"lines.job", "-l", "HPGL", "-o",
                   "serial:" + plotter.Terminal() + "?baud=9600&flow=xonxoff", "-q"}),
              0)
        << err;
    reader.join();
    EXPECT_TRUE(quietWhilePaused);
    EXPECT_EQ(received.size(), expected.size());
    EXPECT_TRUE(received == expected);
}

}  // namespace
