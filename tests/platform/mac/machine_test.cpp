#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/bundles/executable_path.h"
#include "platform/bundles/system.h"
#include "platform/files/special_folder.h"
#include "platform/loop/keyboard.h"
#include "platform/processes/shell_environment.h"
#include "platform/processes/system_information.h"

namespace dunvey {
namespace {

TEST(MacMachine, KnowsItsVersionLanguageAndFolders) {
    const int64_t major = SystemInformationMBS::MacMajorVersion();
    EXPECT_TRUE(major > 10 || (major == 10 && SystemInformationMBS::MacMinorVersion() >= 13));
    EXPECT_LE(UserLanguage().size(), 10U);
    EXPECT_TRUE(SpecialFolder::Applications()->Directory());
    EXPECT_TRUE(SpecialFolder::ApplicationData()->Directory());
    EXPECT_TRUE(ExecutablePath().ends_with("/machine_tests"));
    EXPECT_FALSE(Keyboard::AsyncCommandKey() || Keyboard::AsyncOptionKey());
}

TEST(MacMachine, CommandsFindOnlyTheProgramsOfMacOS) {
    setenv("PATH", "/tmp", 1);
    setenv("BASH_FUNC_open%%", "() { :; }", 1);
    std::string variables;
    for (const std::string& variable : ShellEnvironment())
        variables += "\n" + variable;
    EXPECT_NE(variables.find("\nPATH=/usr/bin:/bin:/usr/sbin:/sbin"), std::string::npos);
    EXPECT_EQ(variables.find("\nPATH=/tmp"), std::string::npos);
    EXPECT_EQ(variables.find("\nBASH_FUNC_"), std::string::npos);
}

}  // namespace
}  // namespace dunvey
