#include "platform/processes/error_line.h"

#include <gtest/gtest.h>

#include <string>

namespace dunvey {
namespace {

TEST(ErrorLine, NoNameForgesALineOrControlsATerminal) {
    ::testing::internal::CaptureStderr();
    WriteErrorLine(std::string("a\nb\r\x1B[31m\x7F\0c\xC2\x9B", 14) + "2J \xC3\xA9\xFF 名\xC2");
    WriteErrorLine("");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "a?b??[31m??c?2J \xC3\xA9\xFF 名\xC2\n\n");
}

}  // namespace
}  // namespace dunvey
