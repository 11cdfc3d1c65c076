#include "platform/processes/spawn.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <unistd.h>

namespace dunvey {
namespace {

/// The array that exec takes; valid as long as the texts.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

int Spawn(const SpawnRequest& request, pid_t& process) {
    const std::vector<char*> arguments = Pointers(request.arguments);
    const std::vector<char*> environment = Pointers(request.environment);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, request.output, STDOUT_FILENO);
    if (request.script >= 0)
        posix_spawn_file_actions_adddup2(&files, request.script, kScriptDescriptor);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    const int error = posix_spawn(&process, request.path.c_str(), &files, &attributes,
                                  arguments.data(), environment.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

FileDescriptor DuplicateAboveScript(int descriptor) {
    return FileDescriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, kScriptDescriptor + 1));
}

int MakePipe(Pipe& pipe) {
    int ends[2];
    if (::pipe(ends) != 0) return errno;
    const FileDescriptor low[] = {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    pipe.reading = DuplicateAboveScript(ends[0]);
    if (!pipe.reading) return errno;
    pipe.writing = DuplicateAboveScript(ends[1]);
    return pipe.writing ? 0 : errno;
}

}  // namespace dunvey
