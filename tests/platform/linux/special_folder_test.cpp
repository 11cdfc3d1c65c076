#include "platform/files/special_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

TEST(SpecialFolder, FollowsTheUsersSettings) {
    const TemporaryFolder home;
    setenv("HOME", home.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (home / "some/where/config").c_str(), 1);
    EXPECT_EQ(SpecialFolder::ApplicationData()->NativePath(), home / "some/where/config");
    EXPECT_TRUE(SpecialFolder::ApplicationData()->Directory()) << "made with all above it";
    setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(SpecialFolder::ApplicationData()->NativePath(), home / ".config");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SpecialFolder::ApplicationData()->NativePath(), home / ".config");
    if (access("/Applications", F_OK) != 0) {
        EXPECT_EQ(SpecialFolder::Applications()->NativePath(), home / "Applications");
    }
    setenv("HOME", "not absolute", 1);
    EXPECT_EQ(SpecialFolder::ApplicationData()->NativePath()[0], '/');
}

}  // namespace
}  // namespace dunvey
