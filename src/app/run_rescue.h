#pragma once

#include <cstdint>

namespace dunvey {

/// While it lives a document is asked about. Where the toolkit ends the whole process from below,
/// because the screen went away, what is left of the run is handed on by RescueRun.
class RunAtRisk {
 public:
    /// The run has come as far as the document at `idx`.
    explicit RunAtRisk(int64_t idx);
    ~RunAtRisk();
    RunAtRisk(const RunAtRisk&) = delete;
    RunAtRisk& operator=(const RunAtRisk&) = delete;
};

/// Does what is still to be done for a run in which a document is asked about, without a screen:
/// documents that need no question go out, the others are named on standard error, and the
/// application is closed. Without such a run it does nothing.
void RescueRun();

}  // namespace dunvey
