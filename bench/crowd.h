#pragma once

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace dunvey::bench {

/// So many processes that only stand there.
class Crowd {
 public:
    explicit Crowd(int count) {
        char program[] = DUNVEY_STAND_BY;
        char* words[] = {program, nullptr};
        for (int i = 0; i < count; ++i) {
            pid_t process = 0;
            if (posix_spawn(&process, program, nullptr, nullptr, words, environ) != 0) {
                std::perror(program);
                std::exit(1);
            }
            processes_.push_back(process);
        }
    }
    ~Crowd() {
        for (const pid_t process : processes_)
            kill(process, SIGKILL);
        for (const pid_t process : processes_)
            waitpid(process, nullptr, 0);
    }
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;

 private:
    std::vector<pid_t> processes_;
};

}  // namespace dunvey::bench
