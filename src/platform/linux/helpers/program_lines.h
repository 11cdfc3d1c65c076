#pragma once

#include "platform/linux/helpers/program_file.h"
#include "platform/linux/helpers/row.h"

namespace dunvey {

/// Adds a line, each byte as it is shown.
void AddLine(Row<char>& lines, Slice text);

/// Lines with the paths of the programs of all processes. Where there are many processes a second
/// thread shares the work, and may come to run late: the object has to stand until the process
/// ends.
class ProgramLines {
 public:
    explicit ProgramLines(const ProcessFolder& folder) : folder_(folder) {}
    ProgramLines(const ProgramLines&) = delete;
    ProgramLines& operator=(const ProgramLines&) = delete;

    /// Adds a line for each process that has a program, by ascending ids. To be called once.
    /// Returns whether the system tells of all processes.
    bool AddTo(Row<char>& lines);

 private:
    /// A process and where its line is; without a program the line is empty.
    struct Process {
        pid_t id = 0;
        const Row<char>* lines = nullptr;
        size_t begin = 0;
        size_t size = 0;
    };

    void Publish(const pid_t* ids, size_t count);
    void StartAssistant();
    static void* Assist(void* lines);
    /// Finds the programs of processes that were published until all have been taken.
    void Work(int thread);
    bool Take(size_t& begin, size_t& end);
    void FindProgram(Process& process, ProgramFinder& finder, Row<char>& lines) const;
    /// Works, and waits for what the other thread has taken.
    void Finish();
    void Sort();

    const ProcessFolder& folder_;
    /// Of each thread.
    Row<char> lines_[2];
    /// It doesn't move while there is work.
    Row<Process> processes_;
    /// Changed by one thread and seen by the other: how many processes have been published, taken
    /// and done, and whether these are all.
    size_t published_ = 0;
    size_t taken_ = 0;
    size_t done_ = 0;
    bool isComplete_ = false;
};

}  // namespace dunvey
