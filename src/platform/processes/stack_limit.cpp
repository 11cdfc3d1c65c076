#include "platform/processes/stack_limit.h"

#include <algorithm>

namespace dunvey {

RaisedStackLimit::RaisedStackLimit() {
    constexpr rlim_t kRaised = 24 * 1024 * 1024;
    if (getrlimit(RLIMIT_STACK, &before_) != 0 || before_.rlim_cur >= kRaised) return;
    rlimit raised = before_;
    raised.rlim_cur = std::min(before_.rlim_max, kRaised);
    isRaised_ = setrlimit(RLIMIT_STACK, &raised) == 0;
}

RaisedStackLimit::~RaisedStackLimit() {
    if (isRaised_) setrlimit(RLIMIT_STACK, &before_);
}

std::string RaisedStackLimit::Variable() const {
    return isRaised_ ? "DUNVEY_STACK_LIMIT=" + std::to_string(before_.rlim_cur) : std::string();
}

}  // namespace dunvey
