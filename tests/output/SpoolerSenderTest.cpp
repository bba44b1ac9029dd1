// The spooler, with a fake lp first on PATH that records what it is given.

#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "host/output/VRKSender.h"
#include "host/output/VRKSpoolerSender.h"
#include "tests/output/SenderTestSupport.h"
#include "tests/support/ScopedEnv.h"
#include "tests/support/TempFolder.h"

namespace {

// Writes the shell script `body` as `lp` in `folder`.
void WriteFakeLp(const TempFolder& folder, const std::string& body) {
    const std::string path = folder.Write("lp", "#!/bin/sh\n" + body);
    ::chmod(path.c_str(), 0755);
}

// PATH with `folder` first.
std::string PathWith(const TempFolder& folder) {
    const char* path = std::getenv("PATH");
    return folder.Path() + ":" + (path != nullptr ? path : "/usr/bin:/bin");
}

std::unique_ptr<VRKSender> SpoolerSender(const std::string& text, const std::string& title,
                                         double timeoutSeconds = 30) {
    VRKDestination destination;
    std::string error;
    EXPECT_TRUE(VRKDestination::Parse(text, destination, error)) << error;
    VRKSendOptions options;
    options.title = title;
    options.timeoutSeconds = timeoutSeconds;
    auto sender = VRKSender::Create(destination, options);
    EXPECT_NE(dynamic_cast<VRKSpoolerSender*>(sender.get()), nullptr);
    return sender;
}

TEST(SpoolerSender, LpGetsTheQueueRawTheTitleAndThePlot) {
    TempFolder folder("lp");
    WriteFakeLp(folder, "printf '%s\\n' \"$@\" > '" + folder.File("arguments") + "'\ncat > '" +
                            folder.File("input") +
                            "'\necho 'request id is Plan_A1-12 (1 file(s))'\n");
    ScopedEnv path("PATH", PathWith(folder));
    const std::string plot = VariedBytes(3 * 1000 * 1000);
    const auto sender = SpoolerSender("lp:Plan_A1", "Plan 7 - ground floor");
    EXPECT_EQ(SendAll(*sender, plot), "");
    EXPECT_EQ(ReadFileBytes(folder.File("arguments")),
              "-d\nPlan_A1\n-o\nraw\n-t\nPlan 7 - ground floor\n");
    EXPECT_TRUE(ReadFileBytes(folder.File("input")) == plot);
    const auto& spooler = dynamic_cast<const VRKSpoolerSender&>(*sender);
    EXPECT_EQ(spooler.GetSpoolerOutput(), "request id is Plan_A1-12 (1 file(s))");
    EXPECT_EQ(spooler.GetSpoolerErrors(), "");
}

TEST(SpoolerSender, TheDefaultQueueHasNoDestinationAndNoTitleNoTitleOption) {
    TempFolder folder("lp");
    WriteFakeLp(folder, "printf '%s\\n' \"$@\" > '" + folder.File("arguments") + "'\ncat > '" +
                            folder.File("input") + "'\n");
    ScopedEnv path("PATH", PathWith(folder));
    const auto sender = SpoolerSender("lp:", "");
    EXPECT_EQ(SendAll(*sender, "IN;PG;"), "");
    EXPECT_EQ(ReadFileBytes(folder.File("arguments")), "-o\nraw\n");
    EXPECT_EQ(ReadFileBytes(folder.File("input")), "IN;PG;");
    EXPECT_EQ(VRKSpoolerSender::Arguments("q", "t"),
              (std::vector<std::string>{"lp", "-d", "q", "-o", "raw", "-t", "t"}));
}

TEST(SpoolerSender, LpsOwnMessageIsTheError) {
    TempFolder folder("lp");
    WriteFakeLp(folder,
                "cat > /dev/null\necho 'lp: The printer or class does not exist.' >&2\nexit 1\n");
    ScopedEnv path("PATH", PathWith(folder));
    const auto sender = SpoolerSender("lp:nosuch", "");
    EXPECT_EQ(SendAll(*sender, VariedBytes(100000)),
              "finish: lp: The printer or class does not exist.");
}

TEST(SpoolerSender, AnLpThatDiesEarlyGivesItsMessageNotABrokenPipe) {
    TempFolder folder("lp");
    WriteFakeLp(folder, "echo 'lp: The printer or class does not exist.' >&2\nexit 1\n");
    ScopedEnv path("PATH", PathWith(folder));
    const auto sender = SpoolerSender("lp:nosuch", "");
    // More than a pipe holds, so that the sender meets the closed pipe.
    EXPECT_EQ(SendAll(*sender, VariedBytes(4 * 1000 * 1000)),
              "send: lp: The printer or class does not exist.");
}

TEST(SpoolerSender, AnLpWithoutMessageGivesItsStatus) {
    TempFolder folder("lp");
    WriteFakeLp(folder, "cat > /dev/null\necho 'request id is q-1 (1 file(s))'\nexit 3\n");
    ScopedEnv path("PATH", PathWith(folder));
    const auto sender = SpoolerSender("lp:q", "");
    EXPECT_EQ(SendAll(*sender, "PG;"), "finish: lp exited with status 3");
}

TEST(SpoolerSender, AMissingLpSaysWhatToInstall) {
    TempFolder folder("lp");
    ScopedEnv path("PATH", folder.Path());
    const auto sender = SpoolerSender("lp:q", "");
    std::string error;
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error,
              "cannot run lp: No such file or directory (the spooler's client, Debian package "
              "cups-client)");
}

TEST(SpoolerSender, AbortKillsLpBeforeItSubmits) {
    TempFolder folder("lp");
    // The fake lp "submits" (writes the file) only when its input ends.
    WriteFakeLp(folder, "cat > /dev/null\ntouch '" + folder.File("submitted") + "'\n");
    ScopedEnv path("PATH", PathWith(folder));
    const auto sender = SpoolerSender("lp:q", "");
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    ASSERT_TRUE(sender->Send("IN;", 3, error)) << error;
    sender->Abort();
    EXPECT_EQ(ReadFileBytes(folder.File("submitted")), "");
    EXPECT_EQ(::access(folder.File("submitted").c_str(), F_OK), -1);
}

TEST(SpoolerSender, AnLpThatStopsReadingFailsAfterTheTimeout) {
    TempFolder folder("lp");
    WriteFakeLp(folder, "sleep 30\n");
    ScopedEnv path("PATH", PathWith(folder));
    const auto sender = SpoolerSender("lp:q", "", 1);
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    const std::string plot = VariedBytes(1000000);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(sender->Send(plot.data(), plot.size(), error));
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_EQ(error, "the spooler stopped taking data: nothing was taken for 1 second");
    EXPECT_LT(seconds, 4);
}

}  // namespace
