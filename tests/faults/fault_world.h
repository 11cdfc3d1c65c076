#pragma once

#include <sys/prctl.h>

#include <cerrno>
#include <functional>
#include <map>
#include <set>

#include "faults/fault_kinds.h"
#include "road/real_world.h"
#include "support/soak.h"

namespace dunvey::test {

/// One system call that fails, or at position 0 all of that kind.
struct Fault {
    Kind kind = Kind::kCount;
    int position = 0;
    std::string action;

    /// As the preloaded library reads it; empty for none.
    std::string Text() const {
        if (kind == Kind::kCount) return {};
        return std::string(kFaultKinds[static_cast<int>(kind)]) + ":" + std::to_string(position) +
               ":" + action;
    }
    /// Whether nothing but a repetition is called for, so that nobody may notice.
    bool IsHarmless() const {
        return kind == Kind::kCount || action == "short" || action == std::to_string(EINTR);
    }
};

/// The ways in which a call of the kind is made to fail.
inline const std::vector<std::string>& ActionsOf(Kind kind) {
    static const auto number = [](int error) { return std::to_string(error); };
    static const std::string io = number(EIO), access = number(EACCES), full = number(ENOSPC),
                             many = number(EMFILE), interrupted = number(EINTR),
                             again = number(EAGAIN), memory = number(ENOMEM);
    static const std::vector<std::string> actions[] = {
        {interrupted, io, many, access, full},           // open
        {"short", io, interrupted},                      // read
        {"torn", full, "short", interrupted, io},        // write
        {io, interrupted, full},                         // close
        {io, interrupted, full},                         // cut
        {full, access, interrupted, io},                 // mkdir
        {access, io, interrupted},                       // unlink
        {again, io, memory, access, many, interrupted},  // spawn
        {many, number(ENFILE)},                          // pipe
        {many},                                          // duplicate
        {many, memory},                                  // memory
        {interrupted},                                   // wait
        {io, many, interrupted, access},                 // folder
        {interrupted, io},                               // entry
        {interrupted, io, access},                       // look
        {access},                                        // enter
    };
    static_assert(std::size(actions) == static_cast<size_t>(Kind::kCount));
    return actions[static_cast<size_t>(kind)];
}

/// How far apart the positions of the short form are: some calls are many and much alike.
inline int StrideOf(Kind kind) {
    return kind == Kind::kLook || kind == Kind::kClose ? 3 : 1;
}

/// Runs of a program with one fault each. In the short form every position fails once, of looks and
/// closes every third; the ways of failing take turns along the positions and begin elsewhere for
/// each kind. In the long form every position fails in every way.
class FaultWorld : public RealWorld {
 protected:
    using Counts = std::map<Kind, int>;

    void SetUp() override {
        RealWorld::SetUp();
        // Whoever loses a child loses it to the test, where it is seen.
        ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    }

    /// What makes the fault happen in the program of that name.
    std::vector<std::string> FaultVariables(const std::string& program, const Fault& fault,
                                            const std::string& below = {}) const {
        std::vector<std::string> variables = {
            "LD_PRELOAD=" DUNVEY_INTERPOSER,
            // To look for leaks takes twice as long as all the rest of a run.
            std::string("ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=") +
                (IsSoak() ? "1" : "0"),
            "DUNVEY_FAULT_IN=" + program, "DUNVEY_FAULT_COUNTS=" + (folder_ / "counts")};
        if (!fault.Text().empty()) variables.push_back("DUNVEY_FAULT=" + fault.Text());
        if (!below.empty()) variables.push_back("DUNVEY_FAULT_BELOW=" + below);
        return variables;
    }

    /// How many calls of each kind the last run made.
    Counts ReadCounts() const {
        Counts counts;
        std::ifstream file(folder_ / "counts");
        int count = 0;
        for (std::string name; file >> name >> count;) {
            for (int kind = 0; kind < static_cast<int>(Kind::kCount); ++kind) {
                if (name == kFaultKinds[kind]) counts[static_cast<Kind>(kind)] = count;
            }
        }
        return counts;
    }

    /// Calls `run` with every fault that the counts have room for.
    void Sweep(const Counts& counts, const std::function<void(const Fault&)>& run) {
        for (const auto& [kind, count] : counts) {
            const std::vector<std::string>& actions = ActionsOf(kind);
            for (int position = 1; position <= count; ++position) {
                if (!IsSoak() && position % StrideOf(kind) != 0) continue;
                const size_t turn =
                    static_cast<size_t>(position / StrideOf(kind)) + static_cast<size_t>(kind);
                for (size_t i = 0; i < (IsSoak() ? actions.size() : 1); ++i) {
                    const Fault fault{kind, position, actions[(turn + i) % actions.size()]};
                    SCOPED_TRACE(fault.Text());
                    run(fault);
                    ++faults_;
                }
            }
        }
    }

    /// Whether a process that the program left behind is still there.
    static bool IsChildLeft() { return waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD; }

    void TearDown() override {
        std::printf("faults injected %zu, documents sent %zu, named %zu, lost %zu\n", faults_,
                    sent_, named_, lost_);
        Figure("faults injected", faults_);
        Figure("documents sent", sent_);
        Figure("documents not sent but named to the user", named_);
        Figure("documents lost", lost_);
        RealWorld::TearDown();
    }

    size_t faults_ = 0;
    size_t sent_ = 0;
    /// Not sent, but the user was told which one.
    size_t named_ = 0;
    size_t lost_ = 0;
};

}  // namespace dunvey::test
