#include "platform/processes/launch_loop.h"

#include <chrono>
#include <cstdlib>

#include "platform/processes/process_setup.h"

namespace dunvey {
namespace {

constexpr const char* kMark = "DUNVEY_OPENING=";
constexpr long kMostPasses = 3;
constexpr long kQuickSeconds = 20;

long Now() {
    using namespace std::chrono;
    return static_cast<long>(
        duration_cast<seconds>(steady_clock::now().time_since_epoch()).count());
}

/// How many quick passes led to this process; 0 without a valid mark.
long Passes() {
    for (const std::string& variable : StartEnvironment()) {
        if (!variable.starts_with(kMark)) continue;
        char* end = nullptr;
        const long count = std::strtol(variable.c_str() + std::string(kMark).size(), &end, 10);
        const long age = Now() - std::strtol(end, nullptr, 10);
        const bool isValid = count >= 0 && count <= kMostPasses && age >= 0 && age < kQuickSeconds;
        return isValid ? count : 0;
    }
    return 0;
}

}  // namespace

std::string OpeningMark() {
    return kMark + std::to_string(Passes() + 1) + " " + std::to_string(Now());
}

bool IsOpeningLoop() {
    return Passes() >= kMostPasses;
}

}  // namespace dunvey
