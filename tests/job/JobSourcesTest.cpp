#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "host/job/VRKJobLineBuffer.h"
#include "host/job/VRKJobMemorySource.h"
#include "host/job/VRKJobPlayer.h"
#include "host/job/VRKJobStreamSource.h"
#include "support/RecordingGenerator.h"

namespace {

TEST(JobSources, MemoryIsReadInBlocksToItsEnd) {
    VRKJobMemorySource source("abcdefg");
    char data[8] = {};
    EXPECT_EQ(source.Read(data, 3), 3u);
    EXPECT_EQ(std::string(data, 3), "abc");
    EXPECT_EQ(source.Read(data, 8), 4u);
    EXPECT_EQ(std::string(data, 4), "defg");
    EXPECT_EQ(source.Read(data, 8), 0u);
}

TEST(JobSources, MemoryPlaysAsAStreamDoes) {
    const std::string job = "Begin\nMoveTo 1 2\nLineTo 3 4 # lexed\nSelectDrawColor 2\nEnd";
    RecordingGenerator fromMemory;
    VRKJobPlayer memoryPlayer(fromMemory);
    ASSERT_TRUE(memoryPlayer.PlayMemory(job, "JOB", "")) << memoryPlayer.GetError().ToString();
    RecordingGenerator fromStream;
    VRKJobPlayer streamPlayer(fromStream);
    std::istringstream in(job);
    ASSERT_TRUE(streamPlayer.Play(in, "JOB", ""));
    EXPECT_EQ(fromMemory.calls, fromStream.calls);
    ASSERT_EQ(fromMemory.calls.size(), 5u);
    EXPECT_EQ(fromMemory.calls[3], "SelectDrawColor 2");
}

TEST(JobSources, MemoryErrorsNameTheJobAndLine) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayMemory("Begin\nLineTo 1\nEnd\n", "mem.job", ""));
    EXPECT_EQ(player.GetError().ToString(),
              "mem.job:2: LineTo: missing argument; usage: LineTo x y");
}

// Lines are cut at LF; a CR stays for the player, and the last line needs no line end.
TEST(JobLineBuffer, CutsLines) {
    VRKJobMemorySource source("one\r\n\ntwo three\nlast");
    VRKJobLineBuffer buffer;
    std::string_view line;
    std::string lines;
    for (;;) {
        const VRKJobLineBuffer::Result result = buffer.NextLine(source, line);
        if (result == VRKJobLineBuffer::Result::kEnd) {
            break;
        }
        lines += "[" + std::string(line) + "]" +
                 (result == VRKJobLineBuffer::Result::kLineReadOn ? "+" : "");
    }
    EXPECT_EQ(lines, "[one\r]+[][two three][last]+");
}

TEST(JobLineBuffer, RefusesALineBeyondTheLimit) {
    VRKJobMemorySource source("12345\n123456\n");
    VRKJobLineBuffer buffer;
    buffer.SetMaxLineLength(5);
    std::string_view line;
    EXPECT_EQ(buffer.NextLine(source, line), VRKJobLineBuffer::Result::kLineReadOn);
    EXPECT_EQ(line, "12345");
    EXPECT_EQ(buffer.NextLine(source, line), VRKJobLineBuffer::Result::kTooLong);
}

// The mark after the unplayed bytes stops the reading of common lines.
TEST(JobLineBuffer, UnplayedBytesEndWithAMark) {
    std::istringstream in("MoveTo 1 2\nLineTo");
    VRKJobStreamSource source(in);
    VRKJobLineBuffer buffer;
    EXPECT_EQ(buffer.Unplayed(), nullptr);
    std::string_view line;
    ASSERT_EQ(buffer.NextLine(source, line), VRKJobLineBuffer::Result::kLineReadOn);
    const char* unplayed = buffer.Unplayed();
    EXPECT_EQ(std::string(unplayed), "LineTo");
    buffer.Played(unplayed + 6);
    EXPECT_EQ(std::string(buffer.Unplayed()), "");
}

}  // namespace
