#pragma once

#include <sys/resource.h>

#include <string>

namespace dunvey {

/// Raises the soft stack limit to 24 MiB and restores it when destroyed. Started programs inherit
/// the limit; their arguments may take a quarter of it, up to 6 MiB.
class RaisedStackLimit {
 public:
    RaisedStackLimit();
    ~RaisedStackLimit();
    RaisedStackLimit(const RaisedStackLimit&) = delete;
    RaisedStackLimit& operator=(const RaisedStackLimit&) = delete;

    /// For the environment of a started program, which can restore the limit for its own children:
    /// "DUNVEY_STACK_LIMIT=BYTES". Empty if nothing was raised.
    std::string Variable() const;

 private:
    rlimit before_{};
    bool isRaised_ = false;
};

}  // namespace dunvey
