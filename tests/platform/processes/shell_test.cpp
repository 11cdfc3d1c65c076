#include "platform/processes/shell.h"

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

std::string OutputOf(const std::string& command) {
    Shell shell;
    shell.Execute(command);
    return shell.Result();
}

size_t OpenDescriptors() {
    size_t count = 0;
    DIR* directory = opendir("/proc/self/fd");
    while (readdir(directory) != nullptr)
        ++count;
    closedir(directory);
    return count;
}

TEST(Shell, GivesTheStandardOutput) {
    EXPECT_EQ(OutputOf("printf 'a\\nb'; echo c >&2"), "a\nb");
    EXPECT_EQ(OutputOf("echo out; exit 7"), "out\n");
    EXPECT_EQ(OutputOf("no-such-command 2>/dev/null"), "");
    EXPECT_EQ(OutputOf("cat"), "") << "standard input is empty";
    EXPECT_EQ(OutputOf("head -c 300000 /dev/zero | tr '\\0' x"), std::string(300'000, 'x'));
}

TEST(Shell, ANewExecuteForgetsTheOldResult) {
    Shell shell;
    shell.Execute("echo one");
    shell.Execute("true");
    EXPECT_EQ(shell.Result(), "");
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

TEST(Shell, LeavesNoDescriptorAndNoChild) {
    const size_t before = OpenDescriptors();
    for (int i = 0; i < 20; ++i)
        OutputOf("true");
    OutputOf(":" + std::string(200'000, ' '));
    EXPECT_EQ(OpenDescriptors(), before);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left";
}

TEST(Shell, CommandsGetNoDescriptorOfTheProgram) {
    const int own = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int high = fcntl(own, F_DUPFD_CLOEXEC, 77);
    const std::string before = OutputOf("ls /proc/self/fd");
    EXPECT_EQ(before.find("77"), std::string::npos);
    // A command that is kept in a file has that one open besides, and no other.
    const std::string kept = OutputOf("ls /proc/self/fd" + std::string(200'000, ' '));
    EXPECT_LE(std::count(kept.begin(), kept.end(), '\n'),
              std::count(before.begin(), before.end(), '\n') + 1);
    close(high);
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
