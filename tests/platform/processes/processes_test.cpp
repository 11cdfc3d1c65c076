#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files/folder_item.h"
#include "platform/processes/apple_script.h"
#include "platform/processes/error_line.h"
#include "platform/processes/shell.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

std::string OutputOf(const std::string& command) {
    Shell shell;
    shell.Execute(command);
    return shell.Result();
}

TEST(Shell, ReturnsTheStandardOutputOfTheLastCommand) {
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

TEST(Shell, ACommandMayBeLongerThanOneArgument) {
    // The kernel limits one argument to 131,071 bytes and all of them together, by default, to 2
    // MiB.
    for (const size_t size : {131'071U, 131'072U})
        EXPECT_EQ(OutputOf("echo x" + std::string(size - 6, ' ')), "x\n") << size;
    std::string command = "/bin/echo";
    for (int i = 0; i < 300'000; ++i)
        command += " /a/word\\ 1";
    EXPECT_EQ(OutputOf(command + " | wc -w"), "600000\n");
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
    EXPECT_EQ(OutputOf("ls /proc/self/fd").find("77"), std::string::npos);
    close(own);
}

TEST(Shell, WorksWhereTheParentIgnoresSignalsAndHasNoStandardInput) {
    signal(SIGCHLD, SIG_IGN);
    const int input = dup(STDIN_FILENO);
    dup2(open("/dev/zero", O_RDONLY), STDIN_FILENO);
    EXPECT_EQ(OutputOf("head -c 1"), "") << "the parent's standard input";
    close(STDIN_FILENO);
    EXPECT_EQ(OutputOf("grep -c 'SigIgn:.*0000000$' /proc/self/status"), "1\n");
    EXPECT_EQ(OutputOf("echo long" + std::string(200'000, ' ')), "long\n");
    dup2(input, STDIN_FILENO);
    close(input);
    signal(SIGCHLD, SIG_DFL);
}

TEST(AppleScript, ReturnsWhatItPrintsAndNothingForSuccess) {
    const TemporaryFolder folder;
    const auto result = [&](const std::string& text) {
        const auto script = New<FolderItem>(folder.Write("it's a script", text));
        return ExecuteAppleScript(script, {"", "a'b"});
    };
    EXPECT_EQ(result(""), "");
    EXPECT_EQ(result("printf '[%s]' \"$@\""), "[][a'b]");
    EXPECT_EQ(result("echo; echo two; echo lines; echo"), "\ntwo\nlines");
    EXPECT_EQ(result("printf 'no line feed'"), "no line feed");
    EXPECT_EQ(result("echo why; exit 3"), "why");
    EXPECT_EQ(result("exit 3"), "The script ended with 3.");
    EXPECT_EQ(result("kill -9 $$"), "The script ended with 137.");
    EXPECT_NE(ExecuteAppleScript(New<FolderItem>(folder / "missing"), {}), "");
}

TEST(ErrorLine, NoNameForgesALineOrControlsATerminal) {
    ::testing::internal::CaptureStderr();
    WriteErrorLine(std::string("a\nb\r\x1B[31m\x7F\0c\xC2\x9B", 14) + "2J \xC3\xA9\xFF 名\xC2");
    WriteErrorLine("");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "a?b??[31m??c?2J \xC3\xA9\xFF 名\xC2\n\n");
}

}  // namespace
}  // namespace dunvey
