// The least that any program must do for a run: the shell commands, one list of processes for each
// document and one launch, with posix_spawn and nothing else. Words: the helpers' folder, the
// application, the documents.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

std::string Escaped(const std::string& path) {
    std::string word;
    for (const char c : path)
        word += c == ' ' ? "\\ " : std::string(1, c);
    return word;
}

void Run(const std::string& command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) std::exit(1);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const char* words[] = {"sh", "-c", command.c_str(), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, "/bin/sh", &actions, nullptr, const_cast<char* const*>(words),
                    environ) != 0) {
        std::exit(1);
    }
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    char block[65536];
    while (read(ends[0], block, sizeof block) > 0) {
    }
    close(ends[0]);
    waitpid(process, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) return 2;
    setenv("PATH", (std::string(argv[1]) + ":/usr/bin:/bin").c_str(), 1);
    const std::string application = Escaped(argv[2]);
    std::string files;
    for (int i = 3; i < argc; ++i) {
        Run("ps -ax -o comm");
        files += Escaped(argv[i]) + " ";
    }
    Run("open -a " + application + " " + files + " && open " + application);
    return 0;
}
