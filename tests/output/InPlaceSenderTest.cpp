// Devices, FIFOs, socket files and standard output, written in place.

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <thread>

#include "host/output/VRKInPlaceSender.h"
#include "host/output/VRKSender.h"
#include "tests/output/SenderTestSupport.h"
#include "tests/support/TempFolder.h"

namespace {

std::unique_ptr<VRKSender> SenderFor(const std::string& text) {
    VRKDestination destination;
    std::string error;
    EXPECT_TRUE(VRKDestination::Parse(text, destination, error)) << error;
    auto sender = VRKSender::Create(destination, VRKSendOptions());
    EXPECT_NE(dynamic_cast<VRKInPlaceSender*>(sender.get()), nullptr);
    return sender;
}

mode_t TypeOf(const std::string& path) {
    struct stat status;
    return ::stat(path.c_str(), &status) == 0 ? (status.st_mode & S_IFMT) : 0;
}

TEST(InPlaceSender, AFifoIsWrittenAndStaysAFifo) {
    TempFolder folder("fifo");
    const std::string fifo = folder.File("plotter");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const std::string plot = VariedBytes(3 * 1000 * 1000);
    std::string received;
    std::thread reader([&] {
        const int fd = ::open(fifo.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd >= 0) {
            received = ReadToEnd(fd);
            ::close(fd);
        }
    });
    // Open waits until the reader has opened the FIFO.
    const auto sender = SenderFor(fifo);
    EXPECT_EQ(SendAll(*sender, plot, 65536 + 17), "");
    reader.join();
    EXPECT_TRUE(received == plot);
    EXPECT_EQ(TypeOf(fifo), S_IFIFO);
}

TEST(InPlaceSender, AFifoWhoseReaderLeavesFailsWithoutSigPipe) {
    TempFolder folder("fifo");
    const std::string fifo = folder.File("plotter");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::thread reader([&] {
        const int fd = ::open(fifo.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd >= 0) {
            char buffer[100];
            (void)::read(fd, buffer, sizeof buffer);
            ::close(fd);
        }
    });
    // SIGPIPE is at its default here: the process would end if the sender let it through.
    const auto sender = SenderFor(fifo);
    const std::string error = SendAll(*sender, VariedBytes(2 * 1000 * 1000));
    reader.join();
    EXPECT_EQ(error, std::string("send: ") + std::strerror(EPIPE));
    sigset_t pending;
    sigemptyset(&pending);
    ::sigpending(&pending);
    EXPECT_FALSE(sigismember(&pending, SIGPIPE));
}

TEST(InPlaceSender, AFullDeviceSaysSoAndStaysADevice) {
    const auto sender = SenderFor("/dev/full");
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    EXPECT_FALSE(sender->Send("PG;", 3, error));
    EXPECT_EQ(error, "No space left on device");
    EXPECT_EQ(TypeOf("/dev/full"), S_IFCHR);
    EXPECT_FALSE(sender->Finish(error));
    EXPECT_EQ(error, "the destination is not open");
}

TEST(InPlaceSender, TheNullDeviceTakesEverything) {
    const auto sender = SenderFor("/dev/null");
    EXPECT_EQ(SendAll(*sender, VariedBytes(1000000)), "");
    EXPECT_EQ(TypeOf("/dev/null"), S_IFCHR);
}

TEST(InPlaceSender, ASocketFileIsConnected) {
    TempFolder folder("sock");
    const std::string path = folder.File("plotter.sock");
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, path.c_str());
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 1), 0);
    const std::string plot = VariedBytes(4 * 1000 * 1000, 99);
    std::string received;
    std::thread server([&] {
        const int connection = ::accept(listener, nullptr, nullptr);
        if (connection >= 0) {
            received = ReadToEnd(connection);
            ::close(connection);
        }
    });
    const auto sender = SenderFor(path);
    EXPECT_EQ(SendAll(*sender, plot), "");
    server.join();
    ::close(listener);
    EXPECT_TRUE(received == plot);
    EXPECT_EQ(TypeOf(path), S_IFSOCK);
}

TEST(InPlaceSender, ASocketFileWithoutListenerIsRefused) {
    TempFolder folder("sock");
    const std::string path = folder.File("gone.sock");
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strcpy(address.sun_path, path.c_str());
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ::close(fd);
    const auto sender = SenderFor(path);
    std::string error;
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error, "cannot connect: Connection refused");
}

TEST(InPlaceSender, StandardOutputIsWrittenAndLeftOpen) {
    int pipeEnds[2];
    ASSERT_EQ(::pipe(pipeEnds), 0);
    const int savedOutput = ::dup(STDOUT_FILENO);
    ASSERT_GE(savedOutput, 0);
    ::fflush(stdout);
    ::dup2(pipeEnds[1], STDOUT_FILENO);
    const std::string plot = VariedBytes(30000);
    const auto sender = SenderFor("-");
    const std::string error = SendAll(*sender, plot, 1000);
    const bool stillOpen = ::fcntl(STDOUT_FILENO, F_GETFD) >= 0;
    ::dup2(savedOutput, STDOUT_FILENO);
    ::close(savedOutput);
    ::close(pipeEnds[1]);
    const std::string received = ReadToEnd(pipeEnds[0]);
    ::close(pipeEnds[0]);
    EXPECT_EQ(error, "");
    EXPECT_TRUE(stillOpen);
    EXPECT_TRUE(received == plot);
}

TEST(InPlaceSender, WhatCannotBeWrittenInPlaceIsRefused) {
    TempFolder folder("inplace");
    const std::string file = folder.Write("plot.plt", "old");
    std::string error;
    auto sender = SenderFor(file);
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error, "not a character device, a FIFO or a socket file");
    EXPECT_EQ(ReadFileBytes(file), "old");

    sender = SenderFor(folder.Path());
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error, std::strerror(EISDIR));

    const std::string missing = folder.File("missing");
    sender = SenderFor(missing);
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error, std::strerror(ENOENT));
    EXPECT_EQ(TypeOf(missing), 0u);
}

}  // namespace
