#include "platform/processes/shell.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "platform/files/folder_item.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

std::string OutputOf(const std::string& command) {
    Shell shell;
    shell.Execute(command);
    return shell.Result();
}

TEST(Shell, GivesTheStandardOutputOfTheLastCommand) {
    Shell shell;
    const std::pair<const char*, std::string> cases[] = {
        {"printf 'a\\nb'; echo c >&2", "a\nb"},
        {"no-such-command 2>/dev/null", ""},
        {"echo out; exit 7", "out\n"},
        {"cat", ""},
        {"head -c 300000 /dev/zero | tr '\\0' x", std::string(300'000, 'x')},
        {"true", ""}};
    for (const auto& [command, output] : cases) {
        shell.Execute(command);
        EXPECT_EQ(shell.Result(), output) << command;
    }
}

TEST(Shell, TheBundlesHelpersComeFirst) {
    const TemporaryFolder folder;
    setenv("DUNVEY_TEST_FOLDER", folder.Path().c_str(), 1);
    folder.Write("ps-output", "from the helper\n");
    EXPECT_EQ(OutputOf("ps -ax -o comm"), "from the helper\n");
}

TEST(Shell, ACommandMayBeLongerThanOneArgument) {
    // One argument ends at 131,071 bytes; by default all of them together at 2 MiB.
    for (const size_t words : {13'000U, 14'500U, 200'000U, 500'000U}) {
        std::string command = "set --";
        for (size_t i = 0; i < words; ++i)
            command += " /a/word\\ 1";
        EXPECT_EQ(OutputOf(command + "; echo $#"), std::to_string(words) + "\n");
        EXPECT_EQ(OutputOf("printf x" + command.substr(6, 11 * words) + " | wc -c"), "1\n");
    }
}

TEST(Shell, LeavesNoDescriptorOrChildAndPassesNoDescriptor) {
    const auto open = [] { return FolderItem("/proc/self/fd").Count(); };
    const auto before = open();
    for (int i = 0; i < 20; ++i)
        OutputOf("true");
    OutputOf(":" + std::string(200'000, ' '));
    EXPECT_EQ(open(), before);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left";
    const int own = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 77);
    const std::string seen = OutputOf("ls /proc/self/fd");
    EXPECT_EQ(seen.find("77"), std::string::npos);
    // A command that is kept in a file has that one open besides, and no other.
    const std::string kept = OutputOf("ls /proc/self/fd" + std::string(200'000, ' '));
    EXPECT_LE(std::count(kept.begin(), kept.end(), '\n'),
              std::count(seen.begin(), seen.end(), '\n') + 1);
    close(own);
}

TEST(Shell, WorksWhereTheParentIgnoresSignalsAndHasClosedItsDescriptors) {
    signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(OutputOf("echo still"), "still\n");
    signal(SIGCHLD, SIG_DFL);
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    EXPECT_EQ(OutputOf("echo still"), "still\n");
    EXPECT_EQ(OutputOf("echo long" + std::string(200'000, ' ')), "long\n");
    dup2(input, STDIN_FILENO);
    close(input);
}

}  // namespace
}  // namespace dunvey
