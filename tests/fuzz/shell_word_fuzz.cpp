#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <cerrno>

#include "fuzz/fuzz.h"
#include "platform/files/file_descriptor.h"
#include "platform/files/folder_item.h"

namespace dunvey::fuzz {
namespace {

/// A shell that lives as long as this process and writes the words that it is given. It finds no
/// commands but its built-in ones, so unquoted words do no harm.
class TellingShell {
 public:
    TellingShell() {
        int commands[2];
        int answers[2];
        Check(pipe2(commands, O_CLOEXEC) == 0 && pipe2(answers, O_CLOEXEC) == 0, "there are pipes");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, commands[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, answers[1], STDOUT_FILENO);
        const char* words[] = {"sh", nullptr};
        const char* environment[] = {"PATH=/nonexistent", "HOME=/nonexistent", nullptr};
        pid_t process = 0;
        Check(posix_spawn(&process, "/bin/sh", &actions, nullptr, const_cast<char**>(words),
                          const_cast<char**>(environment)) == 0,
              "there is a shell");
        posix_spawn_file_actions_destroy(&actions);
        close(commands[0]);
        close(answers[1]);
        commands_ = FileDescriptor(commands[1]);
        answers_ = FileDescriptor(answers[0]);
        Say("set -f; tell() { printf '%s\\0' \"$#\" \"$@\" end; }\n");
    }

    /// The words that the shell makes of the text: their number and each word, each with a zero
    /// byte after it.
    std::string Words(const std::string& text) {
        Say("tell " + text + "\n");
        static const std::string end("\0end\0", 5);
        std::string told;
        while (!told.ends_with(end)) {
            char block[4096];
            const ssize_t got = read(answers_.Get(), block, sizeof block);
            // libFuzzer's timer interrupts.
            if (got < 0 && errno == EINTR) continue;
            Check(got > 0, "the shell answers", text);
            told.append(block, static_cast<size_t>(got));
        }
        return told.substr(0, told.size() - end.size() + 1);
    }

 private:
    void Say(const std::string& command) {
        Check(WriteFully(commands_.Get(), command) == 0, "the shell listens");
    }

    FileDescriptor commands_;
    FileDescriptor answers_;
};

std::string OneWord(const std::string& text) {
    return std::string("1\0", 2) + text + '\0';
}

}  // namespace

void TryInput(std::string_view bytes) {
    // A pipe takes so much at once.
    constexpr size_t kLongest = 8192;
    static TellingShell shell;
    std::string text(bytes.substr(0, kLongest));
    std::erase(text, '\0');
    Check(shell.Words(ShellWord(text)) == OneWord(text), "a text is one shell word", text);
    Check(shell.Words(QuotedShellWord(text)) == OneWord(text), "it is one between quotes", text);
    const FolderItem item("/" + text);
    Check(shell.Words(item.ShellPath()) == OneWord(item.NativePath()), "a path is one shell word",
          text);
}

}  // namespace dunvey::fuzz
