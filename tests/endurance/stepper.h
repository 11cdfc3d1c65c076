#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <iterator>
#include <string>

namespace dunvey::test {

/// Runs a program and halts it ahead of each of its system calls: between two of them nothing
/// happens that anybody else could see. Calls that only manage memory, and those of its children,
/// go by.
class Stepper {
 public:
    /// Is given the number of the step, from 1 on, and returns whether the program lives on.
    using AtStep = std::function<bool(size_t step)>;

    struct Outcome {
        /// How many steps the program got to.
        size_t steps = 0;
        /// -1 if it was killed.
        int exitCode = -1;
        /// It waited for so long that it was killed.
        bool isIdle = false;
    };

    /// Runs the program; `patience` is for how many seconds it may rest in one call.
    static Outcome Run(const std::string& program, char* const* arguments, char* const* variables,
                       const std::string& complaints, unsigned patience, const AtStep& atStep) {
        Stepper stepper(patience);
        stepper.process_ = fork();
        if (stepper.process_ == 0) Become(program, arguments, variables, complaints);
        stepper.Follow(atStep);
        return stepper.outcome_;
    }

 private:
    explicit Stepper(unsigned patience) : patience_(patience) {
        struct sigaction interrupting {};
        interrupting.sa_handler = [](int) {};
        sigaction(SIGALRM, &interrupting, nullptr);
    }

    [[noreturn]] static void Become(const std::string& program, char* const* arguments,
                                    char* const* variables, const std::string& complaints) {
        const int file = open(complaints.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, STDERR_FILENO);
        close(file);
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        execve(program.c_str(), arguments, variables);
        _exit(127);
    }

    void Follow(const AtStep& atStep) {
        int status = 0;
        if (!Await(status)) return;
        const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL | PTRACE_O_TRACEEXEC;
        ptrace(PTRACE_SETOPTIONS, process_, nullptr, options);
        int signalToPass = 0;
        bool isProgram = false;
        for (;;) {
            ptrace(PTRACE_SYSCALL, process_, nullptr, signalToPass);
            if (!Await(status)) return;
            signalToPass = 0;
            if (status >> 8 == (SIGTRAP | (PTRACE_EVENT_EXEC << 8))) {
                isProgram = true;
            } else if (WSTOPSIG(status) != (SIGTRAP | 0x80)) {
                signalToPass = WSTOPSIG(status);
            } else if (isProgram && IsStep() && !atStep(++outcome_.steps)) {
                End();
                return;
            }
        }
    }

    /// Waits until the program halts; false once it has ended.
    bool Await(int& status) {
        alarm(patience_);
        const pid_t halted = waitpid(process_, &status, __WALL);
        const int error = errno;
        alarm(0);
        if (halted == process_ && WIFSTOPPED(status)) return true;
        if (halted == process_ && WIFEXITED(status)) outcome_.exitCode = WEXITSTATUS(status);
        if (halted < 0 && error == EINTR) {
            outcome_.isIdle = true;
            End();
        }
        return false;
    }

    void End() const {
        kill(process_, SIGKILL);
        while (waitpid(process_, nullptr, __WALL) == process_)
            continue;
    }

    bool IsStep() const {
        static constexpr long kUnseen[] = {SYS_mmap,    SYS_munmap, SYS_mprotect,      SYS_brk,
                                           SYS_madvise, SYS_futex,  SYS_rt_sigprocmask};
        __ptrace_syscall_info call{};
        ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof call, &call);
        if (call.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
        return std::find(std::begin(kUnseen), std::end(kUnseen),
                         static_cast<long>(call.entry.nr)) == std::end(kUnseen);
    }

    unsigned patience_;
    pid_t process_ = -1;
    Outcome outcome_;
};

}  // namespace dunvey::test
