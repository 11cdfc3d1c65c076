#include "platform/processes/apple_script.h"

#include <gtest/gtest.h>

#include "support/hostile_names.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

TEST(AppleScript, GivesWhatItPrintsAndSilenceMeansSuccess) {
    const test::TemporaryFolder folder;
    const auto result = [&](const std::string& text,
                            const std::vector<std::string>& arguments = {}) {
        return ExecuteAppleScript(New<FolderItem>(folder.Write("it's a script", text)), arguments);
    };
    EXPECT_EQ(result(""), "");
    EXPECT_EQ(result("echo; echo two; echo lines; echo"), "\ntwo\nlines");
    EXPECT_EQ(result("printf 'no line feed'"), "no line feed");
    EXPECT_EQ(result("echo why; exit 3"), "why");
    EXPECT_EQ(result("exit 3"), "The script ended with 3.");
    EXPECT_EQ(result("kill -9 $$"), "The script ended with 137.");
    EXPECT_NE(ExecuteAppleScript(New<FolderItem>(folder / "missing"), {}), "");
    std::string printed;
    std::vector<std::string> names = test::HostileNames();
    names.push_back("");
    for (const std::string& name : names)
        printed += "[" + name + "]";
    EXPECT_EQ(result("printf '[%s]' \"$@\"", names), printed);
}

}  // namespace
}  // namespace dunvey
