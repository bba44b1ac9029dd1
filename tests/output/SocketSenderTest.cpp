// Raw TCP to a printer's port, against servers on the loopback interface.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "host/output/VRKSender.h"
#include "host/output/VRKSocketSender.h"
#include "tests/output/SenderTestSupport.h"
#include "tests/support/LoopbackListener.h"

namespace {

using std::chrono::steady_clock;

VRKDestination SocketDestination(int port) {
    VRKDestination destination;
    std::string error;
    EXPECT_TRUE(
        VRKDestination::Parse("socket://127.0.0.1:" + std::to_string(port), destination, error))
        << error;
    return destination;
}

VRKSendOptions Timeout(double seconds) {
    VRKSendOptions options;
    options.timeoutSeconds = seconds;
    return options;
}

double SecondsSince(steady_clock::time_point start) {
    return std::chrono::duration<double>(steady_clock::now() - start).count();
}

TEST(SocketSender, CreateMakesOne) {
    const auto sender = VRKSender::Create(SocketDestination(9100), VRKSendOptions());
    EXPECT_NE(dynamic_cast<VRKSocketSender*>(sender.get()), nullptr);
}

TEST(SocketSender, AServerThatReadsGetsExactlyTheBytesThenTheEnd) {
    LoopbackListener listener;
    const std::string plot = VariedBytes(5 * 1000 * 1000);
    std::string received;
    std::thread server([&] {
        const int connection = ::accept(listener.Fd(), nullptr, nullptr);
        if (connection >= 0) {
            // ReadToEnd returns at EOF: the sender's shutdown.
            received = ReadToEnd(connection);
            ::close(connection);
        }
    });
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(10));
    EXPECT_EQ(SendAll(*sender, plot, 777777), "");
    server.join();
    EXPECT_EQ(received.size(), plot.size());
    EXPECT_TRUE(received == plot);
}

TEST(SocketSender, BackChannelBytesAreDropped) {
    LoopbackListener listener;
    const std::string plot = VariedBytes(3 * 1000 * 1000, 7);
    std::string received;
    std::thread server([&] {
        const int connection = ::accept(listener.Fd(), nullptr, nullptr);
        if (connection >= 0) {
            // A printer that talks back (status messages) before and while it reads.
            const std::string status(200000, 'S');
            ::send(connection, status.data(), status.size(), MSG_NOSIGNAL);
            received = ReadToEnd(connection);
            ::send(connection, "@PJL USTATUS\r\n", 14, MSG_NOSIGNAL);
            ::close(connection);
        }
    });
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(10));
    EXPECT_EQ(SendAll(*sender, plot), "");
    server.join();
    EXPECT_TRUE(received == plot);
}

TEST(SocketSender, ARefusedConnectionFailsAtOnce) {
    int port = 0;
    {
        LoopbackListener closed;
        port = closed.Port();
    }
    const auto start = steady_clock::now();
    const auto sender = VRKSender::Create(SocketDestination(port), Timeout(30));
    std::string error;
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error,
              "cannot connect to 127.0.0.1:" + std::to_string(port) + ": Connection refused");
    EXPECT_LT(SecondsSince(start), 5);
}

TEST(SocketSender, AnUnknownHostIsNamed) {
    VRKDestination destination;
    std::string error;
    ASSERT_TRUE(VRKDestination::Parse("socket://no-such-printer.invalid", destination, error));
    const auto sender = VRKSender::Create(destination, Timeout(5));
    EXPECT_FALSE(sender->Open(error));
    EXPECT_THAT(error, testing::StartsWith("cannot find the host 'no-such-printer.invalid': "));
}

TEST(SocketSender, AServerThatNeverReadsFailsWithinTheTimeout) {
    LoopbackListener listener(8, 4096);
    std::atomic<bool> done{false};
    std::thread server([&] {
        const int connection = ::accept(listener.Fd(), nullptr, nullptr);
        while (!done) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        if (connection >= 0) {
            ::close(connection);
        }
    });
    const std::string plot = VariedBytes(16 * 1000 * 1000);
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(1));
    const auto start = steady_clock::now();
    const std::string error = SendAll(*sender, plot, 1 << 20);
    const double seconds = SecondsSince(start);
    done = true;
    server.join();
    // The plot stalls in Send, or, had the buffers taken it all, in Finish.
    EXPECT_THAT(error, testing::AnyOf(
                           "send: the printer stopped taking data: nothing was taken for 1 second",
                           "finish: the printer stopped taking data: nothing was taken for 1 "
                           "second"));
    EXPECT_GE(seconds, 1);
    EXPECT_LT(seconds, 4);
}

TEST(SocketSender, FinishWaitsUntilTheServerHasTakenEverything) {
    // The server takes the plot only after 1.5 seconds: the send stalls in Send or, when the
    // kernel's buffers take it all, in Finish, but does not end before.
    LoopbackListener listener(8, 4096);
    const std::string plot = VariedBytes(200000, 3);
    std::string received;
    std::thread server([&] {
        const int connection = ::accept(listener.Fd(), nullptr, nullptr);
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        if (connection >= 0) {
            received = ReadToEnd(connection);
            ::close(connection);
        }
    });
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(5));
    std::string error;
    const auto start = steady_clock::now();
    ASSERT_TRUE(sender->Open(error)) << error;
    ASSERT_TRUE(sender->Send(plot.data(), plot.size(), error)) << error;
    EXPECT_TRUE(sender->Finish(error)) << error;
    EXPECT_GT(SecondsSince(start), 1.4);
    server.join();
    EXPECT_TRUE(received == plot);
}

TEST(SocketSender, AServerThatGoesAwayFailsTheSend) {
    LoopbackListener listener;
    std::thread server([&] {
        const int connection = ::accept(listener.Fd(), nullptr, nullptr);
        if (connection >= 0) {
            char buffer[1000];
            (void)::read(connection, buffer, sizeof buffer);
            ::close(connection);
        }
    });
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(5));
    const std::string error = SendAll(*sender, VariedBytes(20 * 1000 * 1000), 100000);
    server.join();
    EXPECT_THAT(error, testing::AnyOf("send: Connection reset by peer", "send: Broken pipe",
                                      "finish: Connection reset by peer",
                                      "finish: the printer closed the connection before it took "
                                      "the whole plot"));
}

TEST(SocketSender, AConnectionWithoutAnswerTimesOut) {
    // A listener with a backlog of 0 whose queue is full: the kernel drops further SYNs, so a
    // connection neither completes nor is refused.
    LoopbackListener listener(0);
    std::vector<int> fillers;
    for (int i = 0; i < 4; ++i) {
        const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<std::uint16_t>(listener.Port()));
        ::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
        fillers.push_back(fd);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(1));
    std::string error;
    const auto start = steady_clock::now();
    const bool opened = sender->Open(error);
    const double seconds = SecondsSince(start);
    for (int fd : fillers) {
        ::close(fd);
    }
    if (opened) {
        GTEST_SKIP() << "the kernel completed a connection to a full listening queue";
    }
    EXPECT_EQ(error, "cannot connect to 127.0.0.1:" + std::to_string(listener.Port()) +
                         ": no answer within 1 second");
    EXPECT_GE(seconds, 1);
    EXPECT_LT(seconds, 3);
}

TEST(SocketSender, AbortResetsTheConnection) {
    LoopbackListener listener;
    std::string received;
    std::thread server([&] {
        const int connection = ::accept(listener.Fd(), nullptr, nullptr);
        if (connection >= 0) {
            received = ReadToEnd(connection);
            ::close(connection);
        }
    });
    const auto sender = VRKSender::Create(SocketDestination(listener.Port()), Timeout(5));
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    ASSERT_TRUE(sender->Send("PG;", 3, error)) << error;
    sender->Abort();
    server.join();
    EXPECT_LE(received.size(), 3u);
    EXPECT_FALSE(sender->Send("PG;", 3, error));
    EXPECT_EQ(error, "the connection is closed");
}

}  // namespace
