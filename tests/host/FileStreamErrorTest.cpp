// A file stream remembers why it failed.

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "host/core/VRKPrintFileStream.h"

namespace {

TEST(FileStreamError, AFullDeviceSaysSo) {
    VRKPrintFileStream stream;
    ASSERT_TRUE(stream.Open("/dev/full"));
    EXPECT_EQ(stream.GetErrorNumber(), 0);
    stream.WriteBytes("PU0,0;", 6);
    EXPECT_FALSE(stream.Close());
    EXPECT_EQ(stream.GetErrorNumber(), ENOSPC);
    EXPECT_EQ(stream.GetErrorText(), std::string(std::strerror(ENOSPC)));
}

TEST(FileStreamError, NoErrorNoText) {
    VRKPrintFileStream stream;
    EXPECT_EQ(stream.GetErrorText(), "unknown error");
    ASSERT_TRUE(stream.Open("/dev/null"));
    stream.WriteBytes("PG;", 3);
    EXPECT_TRUE(stream.Close());
    EXPECT_EQ(stream.GetErrorNumber(), 0);
}

}  // namespace
