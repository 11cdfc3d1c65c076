// Stands in for an application in tests: records how it was started.
//
// It appends one record to the file that DUNVEY_RECORD names, else to its own path with ".log": its
// process id, the number of the texts that follow, its own path and its arguments, each with a zero
// byte. Then it stays until SIGTERM; with DUNVEY_RECORD_EXIT set it ends at once.
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
    std::string record = std::to_string(getpid()) + '\0' + std::to_string(argumentCount) + '\0';
    for (int i = 0; i < argumentCount; ++i)
        record += (i == 0 ? path : arguments[i]) + '\0';
    const char* named = std::getenv("DUNVEY_RECORD");
    if (!Append(named != nullptr ? named : path + ".log", record)) return 1;
    while (std::getenv("DUNVEY_RECORD_EXIT") == nullptr)
        pause();
    return 0;
}
