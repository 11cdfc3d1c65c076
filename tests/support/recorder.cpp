// A program that writes down how it was started: stands in for an application in tests.
//
// It appends one record to the file that DUNVEY_RECORD names, else to its own path with ".log":
// a line of decimal numbers (process id, count of texts, length of each text in bytes), then the
// texts without anything between them, then a line feed. The texts are its own path and its
// arguments. Then it stays until SIGTERM; with DUNVEY_RECORD_EXIT set it ends at once.
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

namespace {

std::string OwnPath() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return std::string(path, length > 0 ? static_cast<size_t>(length) : 0);
}

void EndWell(int) {
    _exit(0);
}

bool Append(const std::string& path, const std::string& record) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    const ssize_t written = write(file, record.data(), record.size());
    return written == static_cast<ssize_t>(record.size()) && close(file) == 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::signal(SIGTERM, EndWell);
    const std::string path = OwnPath();
    std::string lengths = std::to_string(getpid()) + " " + std::to_string(argumentCount);
    std::string texts;
    for (int i = 0; i < argumentCount; ++i) {
        const std::string text = i == 0 ? path : arguments[i];
        lengths += ' ';
        lengths += std::to_string(text.size());
        texts += text;
    }
    const char* named = std::getenv("DUNVEY_RECORD");
    if (!Append(named != nullptr ? named : path + ".log", lengths + "\n" + texts + "\n")) return 1;
    while (std::getenv("DUNVEY_RECORD_EXIT") == nullptr)
        pause();
    return 0;
}
