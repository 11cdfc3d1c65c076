// Preloaded into a program, this makes one of its system calls fail: the Nth of a kind. Only what
// the program itself calls is counted, not what its libraries do and not what the C library calls
// inside itself (the steps of posix_spawn, the reads of a FILE or of dlopen).
//
// DUNVEY_FAULT_IN      the name of the program to act in; its children pass the library on unused
// DUNVEY_FAULT         KIND:POSITION:ACTION, position 0 for all calls, the action an errno's
// number, "short" for half of a
//                      read or write, "torn" for half of a write with ENOSPC behind it
// DUNVEY_FAULT_BELOW   of the kinds with a path, only calls on paths that contain this count
// DUNVEY_FAULT_COUNTS  a file that gets a line "KIND COUNT" for each kind at the program's end
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <spawn.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/auxv.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include "faults/fault_kinds.h"

namespace {

using dunvey::test::kFaultKinds;
using dunvey::test::Kind;

enum Action : int { kPass = 0, kShort = -1, kTorn = -2 };

constexpr int kKinds = static_cast<int>(Kind::kCount);
constexpr int kWatched = 1024;

struct State {
    bool active = false;
    int counts[kKinds] = {};
    int kind = -1;
    int position = 0;
    int action = kPass;
    const char* below = nullptr;
    bool watched[kWatched] = {};
    int tornDescriptor = -1;
    pid_t process = 0;
};

State state;

int KindOf(const char* name, size_t length) {
    for (int i = 0; i < kKinds; ++i) {
        if (strlen(kFaultKinds[i]) == length && strncmp(kFaultKinds[i], name, length) == 0)
            return i;
    }
    return -1;
}

void ReadFault(const char* fault) {
    const char* position = strchr(fault, ':');
    const char* action = position != nullptr ? strchr(position + 1, ':') : nullptr;
    if (action == nullptr) return;
    state.kind = KindOf(fault, static_cast<size_t>(position - fault));
    state.position = atoi(position + 1);
    ++action;
    state.action = strcmp(action, "short") == 0  ? kShort
                   : strcmp(action, "torn") == 0 ? kTorn
                                                 : atoi(action);
}

__attribute__((constructor)) void Begin() {
    const char* program = getenv("DUNVEY_FAULT_IN");
    if (program == nullptr || strcmp(program, program_invocation_short_name) != 0) return;
    state.below = getenv("DUNVEY_FAULT_BELOW");
    if (const char* fault = getenv("DUNVEY_FAULT")) ReadFault(fault);
    state.process = getpid();
    state.active = true;
}

template <typename Function>
Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Whether the call comes from the program itself: libraries have calls of their own, a sanitizer
/// first of all.
bool IsOfProgram(const void* caller) {
    static const auto headers = reinterpret_cast<const void*>(getauxval(AT_PHDR));
    Dl_info from;
    Dl_info program;
    return dladdr(caller, &from) != 0 && dladdr(headers, &program) != 0 &&
           from.dli_fbase == program.dli_fbase;
}

/// What is to become of this call of the kind.
int ActionFor(Kind kind, const void* caller) {
    if (!state.active || !IsOfProgram(caller)) return kPass;
    const int index = static_cast<int>(kind);
    const int position = ++state.counts[index];
    const bool isDue = state.position == 0 || position == state.position;
    return index == state.kind && isDue ? state.action : kPass;
}

int ActionForPath(Kind kind, const char* path, const void* caller) {
    const bool counts = state.below == nullptr || strstr(path, state.below) != nullptr;
    return counts ? ActionFor(kind, caller) : kPass;
}

int ActionForDescriptor(Kind kind, int descriptor, const void* caller) {
    const bool watched = descriptor >= 0 && descriptor < kWatched && state.watched[descriptor];
    return state.below == nullptr || watched ? ActionFor(kind, caller) : kPass;
}

/// Keeps in mind whether the open descriptor is of a path that counts.
int Opened(int descriptor, const char* path) {
    if (descriptor >= 0 && descriptor < kWatched) {
        state.watched[descriptor] =
            state.below != nullptr && path != nullptr && strstr(path, state.below) != nullptr;
    }
    return descriptor;
}

int Fail(int error) {
    errno = error;
    return -1;
}

size_t Part(int action, size_t count) {
    return (action == kShort || action == kTorn) && count > 1 ? count / 2 : count;
}

}  // namespace

#define CALLER __builtin_return_address(0)
#define REAL(name) static const auto real = Real(&name, #name)

extern "C" {

// The counts go out with the program, or on its way into another one.
__attribute__((destructor)) void DunveyWriteCounts() {
    const char* path = state.active ? getenv("DUNVEY_FAULT_COUNTS") : nullptr;
    // A child of the program that ends early has the program's numbers, not its own.
    if (path == nullptr || getpid() != state.process) return;
    state.active = false;
    FILE* file = fopen(path, "w");
    if (file == nullptr) return;
    for (int i = 0; i < kKinds; ++i)
        fprintf(file, "%s %d\n", kFaultKinds[i], state.counts[i]);
    fclose(file);
}

#define OPEN(name, parameters, ...)                                  \
    int name parameters {                                            \
        va_list rest;                                                \
        va_start(rest, flags);                                       \
        const mode_t mode = va_arg(rest, mode_t);                    \
        va_end(rest);                                                \
        REAL(name);                                                  \
        const int action = ActionForPath(Kind::kOpen, path, CALLER); \
        if (action > 0) return Fail(action);                         \
        return Opened(real(__VA_ARGS__, flags, mode), path);         \
    }
OPEN(open, (const char* path, int flags, ...), path)
OPEN(open64, (const char* path, int flags, ...), path)
OPEN(openat, (int folder, const char* path, int flags, ...), folder, path)
OPEN(openat64, (int folder, const char* path, int flags, ...), folder, path)

ssize_t read(int descriptor, void* buffer, size_t count) {
    REAL(read);
    const int action = ActionForDescriptor(Kind::kRead, descriptor, CALLER);
    if (action > 0) return Fail(action);
    return real(descriptor, buffer, Part(action, count));
}

ssize_t write(int descriptor, const void* buffer, size_t count) {
    REAL(write);
    if (state.tornDescriptor == descriptor) {
        state.tornDescriptor = -1;
        return Fail(ENOSPC);
    }
    const int action = ActionForDescriptor(Kind::kWrite, descriptor, CALLER);
    if (action > 0) return Fail(action);
    if (action == kTorn) state.tornDescriptor = descriptor;
    return real(descriptor, buffer, Part(action, count));
}

int close(int descriptor) {
    REAL(close);
    const int action = ActionForDescriptor(Kind::kClose, descriptor, CALLER);
    // The kernel lets the descriptor go in any case.
    const int result = real(descriptor);
    if (descriptor >= 0 && descriptor < kWatched) state.watched[descriptor] = false;
    return action > 0 ? Fail(action) : result;
}

#define CUT(name, type)                                                         \
    int name(int descriptor, type length) __THROW {                             \
        REAL(name);                                                             \
        const int action = ActionForDescriptor(Kind::kCut, descriptor, CALLER); \
        return action > 0 ? Fail(action) : real(descriptor, length);            \
    }
CUT(ftruncate, off_t)
CUT(ftruncate64, off64_t)

int mkdir(const char* path, mode_t mode) __THROW {
    REAL(mkdir);
    const int action = ActionForPath(Kind::kMkdir, path, CALLER);
    return action > 0 ? Fail(action) : real(path, mode);
}

int chdir(const char* path) __THROW {
    REAL(chdir);
    const int action = ActionForPath(Kind::kEnter, path, CALLER);
    return action > 0 ? Fail(action) : real(path);
}

int unlink(const char* path) __THROW {
    REAL(unlink);
    const int action = ActionForPath(Kind::kUnlink, path, CALLER);
    return action > 0 ? Fail(action) : real(path);
}

int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const arguments[],
                char* const variables[]) {
    REAL(posix_spawn);
    const int action = ActionFor(Kind::kSpawn, CALLER);
    return action > 0 ? action : real(process, path, actions, attributes, arguments, variables);
}

pid_t fork() __THROWNL {
    REAL(fork);
    const int action = ActionFor(Kind::kSpawn, CALLER);
    return action > 0 ? Fail(action) : real();
}

int execv(const char* path, char* const arguments[]) __THROW {
    REAL(execv);
    const int action = ActionFor(Kind::kSpawn, CALLER);
    return action > 0 ? Fail(action) : real(path, arguments);
}

int pipe(int ends[2]) __THROW {
    REAL(pipe);
    const int action = ActionFor(Kind::kPipe, CALLER);
    return action > 0 ? Fail(action) : real(ends);
}

int pipe2(int ends[2], int flags) __THROW {
    REAL(pipe2);
    const int action = ActionFor(Kind::kPipe, CALLER);
    return action > 0 ? Fail(action) : real(ends, flags);
}

int memfd_create(const char* name, unsigned flags) __THROW {
    REAL(memfd_create);
    const int action = ActionFor(Kind::kMemory, CALLER);
    return action > 0 ? Fail(action) : real(name, flags);
}

#define FCNTL(name)                                                                    \
    int name(int descriptor, int command, ...) {                                       \
        va_list rest;                                                                  \
        va_start(rest, command);                                                       \
        void* const argument = va_arg(rest, void*);                                    \
        va_end(rest);                                                                  \
        REAL(name);                                                                    \
        const bool doubles = command == F_DUPFD || command == F_DUPFD_CLOEXEC;         \
        const int action = doubles ? ActionFor(Kind::kDuplicate, CALLER) : int{kPass}; \
        return action > 0 ? Fail(action) : real(descriptor, command, argument);        \
    }
FCNTL(fcntl)
FCNTL(fcntl64)

pid_t waitpid(pid_t process, int* status, int options) {
    REAL(waitpid);
    const int action = ActionFor(Kind::kWait, CALLER);
    return action > 0 ? Fail(action) : real(process, status, options);
}

#define LOOK(name, type)                                             \
    int name(const char* path, struct type* status) __THROW {        \
        REAL(name);                                                  \
        const int action = ActionForPath(Kind::kLook, path, CALLER); \
        return action > 0 ? Fail(action) : real(path, status);       \
    }
LOOK(stat, stat)
LOOK(lstat, stat)
LOOK(stat64, stat64)
LOOK(lstat64, stat64)

DIR* opendir(const char* path) {
    REAL(opendir);
    const int action = ActionForPath(Kind::kFolder, path, CALLER);
    if (action <= 0) return real(path);
    errno = action;
    return nullptr;
}

#define READDIR(name, type)                                 \
    type* name(DIR* folder) {                               \
        REAL(name);                                         \
        const int action = ActionFor(Kind::kEntry, CALLER); \
        if (action <= 0) return real(folder);               \
        errno = action;                                     \
        return nullptr;                                     \
    }
READDIR(readdir, dirent)
READDIR(readdir64, dirent64)

ssize_t getdents64(int folder, void* entries, size_t size) __THROW {
    REAL(getdents64);
    const int action = ActionFor(Kind::kEntry, CALLER);
    return action > 0 ? Fail(action) : real(folder, entries, size);
}

}  // extern "C"
