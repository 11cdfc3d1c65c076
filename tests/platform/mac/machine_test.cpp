#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "platform/bundles/executable_path.h"
#include "platform/files/anonymous_file.h"
#include "platform/files/special_folder.h"
#include "platform/loop/clock.h"
#include "platform/loop/keyboard.h"
#include "platform/processes/shell_environment.h"
#include "platform/processes/system_information.h"
#include "platform/bundles/system.h"

namespace dunvey {
namespace {

TEST(MacMachine, TellsItsVersionAndLanguage) {
    EXPECT_GE(SystemInformationMBS::MacMajorVersion(), 10);
    if (SystemInformationMBS::MacMajorVersion() == 10) {
        EXPECT_GE(SystemInformationMBS::MacMinorVersion(), 13);
    }
    EXPECT_FALSE(Keyboard::AsyncCommandKey());
    EXPECT_FALSE(Keyboard::AsyncOptionKey());
    EXPECT_LE(UserLanguage().size(), 10U);
}

TEST(MacMachine, SleepsUntilTheTimeHasCome) {
    const Clock::Time until = Clock::Now() + std::chrono::milliseconds(5);
    Clock::SleepUntil(until);
    EXPECT_GE(Clock::Now(), until);
}

TEST(MacMachine, KnowsItsFolders) {
    EXPECT_TRUE(SpecialFolder::Applications()->Directory());
    EXPECT_TRUE(SpecialFolder::ApplicationData()->Directory());
    EXPECT_TRUE(ExecutablePath().ends_with("/machine_tests"));
}

TEST(MacMachine, CommandsUseTheSystemsPrograms) {
    setenv("PATH", "/tmp", 1);
    setenv("BASH_FUNC_open%%", "() { :; }", 1);
    const std::vector<std::string> environment = ShellEnvironment();
    EXPECT_NE(
        std::find(environment.begin(), environment.end(), "PATH=/usr/bin:/bin:/usr/sbin:/sbin"),
        environment.end());
    for (const std::string& variable : environment) {
        EXPECT_NE(variable, "PATH=/tmp");
        EXPECT_FALSE(variable.starts_with("BASH_FUNC_")) << variable;
    }
}

TEST(MacMachine, AnAnonymousFileIsReadFromItsBeginning) {
    const FileDescriptor file = MakeAnonymousFile("text");
    ASSERT_TRUE(file);
    char text[8];
    EXPECT_EQ(std::string(text, static_cast<size_t>(read(file.Get(), text, sizeof text))), "text");
}

}  // namespace
}  // namespace dunvey
