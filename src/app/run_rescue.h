#pragma once

#include <functional>

namespace dunvey {

/// While it lives, the screen may take the run with it: where the toolkit ends the whole process
/// from below, because the screen went away, RescueRun does the rest of the run. There is one at a
/// time.
class RunAtRisk {
 public:
    /// `rest` hands on what hasn't been handed on so far.
    explicit RunAtRisk(std::function<void()> rest);
    ~RunAtRisk();
    RunAtRisk(const RunAtRisk&) = delete;
    RunAtRisk& operator=(const RunAtRisk&) = delete;
};

/// Does the rest of a run that is at risk, without a screen: documents that need no question go
/// out, the others are named on standard error, and the application is closed. Without such a run
/// it does nothing.
void RescueRun();

}  // namespace dunvey
