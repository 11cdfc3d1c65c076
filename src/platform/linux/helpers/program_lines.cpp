#include "platform/linux/helpers/program_lines.h"

#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/sysinfo.h>
#include <time.h>
#include <unistd.h>

#include "platform/linux/helpers/complaint.h"

namespace dunvey {
namespace {

/// Where the system counts fewer, with all their threads, it isn't worth the start of one.
constexpr unsigned kManyProcesses = 100;
/// A thread takes as many at a time.
constexpr size_t kBlockSize = 8;

template <typename Value>
Value Load(const Value& value) {
    return __atomic_load_n(&value, __ATOMIC_ACQUIRE);
}

template <typename Value>
void Store(Value& value, Value newValue) {
    __atomic_store_n(&value, newValue, __ATOMIC_RELEASE);
}

/// Waits a little for the other thread, at first without letting go of the processor for long. It
/// may hang on a file that doesn't answer.
void Wait(int turn) {
    constexpr int kQuickTurns = 1000;
    constexpr timespec kPause{0, 100'000};
    if (turn < kQuickTurns)
        sched_yield();
    else
        nanosleep(&kPause, nullptr);
}

}  // namespace

void AddLine(Row<char>& lines, Slice text) {
    char* const line = lines.Add(text.size + 1);
    if (line == nullptr) return;
    for (size_t i = 0; i < text.size; ++i)
        line[i] = Printable(text.data[i]);
    line[text.size] = '\n';
}

bool ProgramLines::AddTo(Row<char>& lines) {
    StartAssistant();
    ProcessFolder::IdsBuffer ids;
    ssize_t count;
    while ((count = folder_.NextIds(ids)) > 0)
        Publish(ids, static_cast<size_t>(count));
    Store(isComplete_, true);
    if (count < 0) return false;
    Finish();
    Sort();
    for (const Process& each : processes_) {
        char* line = lines.Add(each.size);
        if (line != nullptr && each.size > 0)
            memcpy(line, each.lines->begin() + each.begin, each.size);
    }
    if (processes_.IsCutShort() || lines_[0].IsCutShort() || lines_[1].IsCutShort())
        lines.CutShort();
    return processes_.IsCutShort() || processes_.Count() > 0;
}

void ProgramLines::Publish(const pid_t* ids, size_t count) {
    if (!processes_.HasRoom(count)) Finish();
    Process* process = processes_.Add(count);
    if (process == nullptr) return;
    for (size_t i = 0; i < count; ++i)
        process[i] = {ids[i]};
    Store(published_, processes_.Count());
}

/// Starts the second thread where there is another processor for it. Without one, the first does
/// all.
void ProgramLines::StartAssistant() {
    struct sysinfo system;
    if (sysinfo(&system) != 0 || system.procs < kManyProcesses) return;
    cpu_set_t others;
    if (sched_getaffinity(0, sizeof others, &others) != 0) return;
    const int own = sched_getcpu();
    if (own < 0 || own >= CPU_SETSIZE) return;
    CPU_CLR(static_cast<size_t>(own), &others);
    pthread_t thread;
    if (CPU_COUNT(&others) == 0 || pthread_create(&thread, nullptr, &Assist, this) != 0) return;
    // Left to itself the system has it wait behind the first thread, and all is done before it
    // looks for another processor.
    pthread_setaffinity_np(thread, sizeof others, &others);
}

void* ProgramLines::Assist(void* lines) {
    // With descriptors and credentials of its own, the same ones, it doesn't wait for the other
    // thread's: the kernel counts the uses of both. Nothing else hangs on it.
    unshare(CLONE_FILES);
    prctl(PR_SET_KEEPCAPS, 0);
    ProgramLines& all = *static_cast<ProgramLines*>(lines);
    for (int turn = 0; !Load(all.isComplete_); ++turn) {
        all.Work(1);
        Wait(turn);
    }
    all.Work(1);
    return nullptr;
}

void ProgramLines::Work(int thread) {
    ProgramFinder finder(folder_);
    for (size_t begin, end; Take(begin, end);) {
        for (size_t i = begin; i < end; ++i)
            FindProgram(processes_.begin()[i], finder, lines_[thread]);
        __atomic_fetch_add(&done_, end - begin, __ATOMIC_RELEASE);
    }
}

bool ProgramLines::Take(size_t& begin, size_t& end) {
    begin = Load(taken_);
    do {
        const size_t published = Load(published_);
        if (begin >= published) return false;
        end = published - begin < kBlockSize ? published : begin + kBlockSize;
    } while (!__atomic_compare_exchange_n(&taken_, &begin, end, false, __ATOMIC_ACQ_REL,
                                          __ATOMIC_ACQUIRE));
    return true;
}

void ProgramLines::FindProgram(Process& process, ProgramFinder& finder, Row<char>& lines) const {
    const Slice path = finder.Find(process.id).path;
    if (path.IsEmpty()) return;
    process.lines = &lines;
    process.begin = lines.Count();
    AddLine(lines, path);
    process.size = lines.Count() - process.begin;
}

void ProgramLines::Finish() {
    Work(0);
    for (int turn = 0; Load(done_) < published_; ++turn)
        Wait(turn);
}

/// The system tells of them in this order already, so that each is looked at once.
void ProgramLines::Sort() {
    for (Process* next = processes_.begin(); next != processes_.end(); ++next) {
        const Process process = *next;
        Process* place = next;
        for (; place != processes_.begin() && place[-1].id > process.id; --place)
            *place = place[-1];
        *place = process;
    }
}

}  // namespace dunvey
