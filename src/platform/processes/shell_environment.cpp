#include "platform/processes/shell_environment.h"

#include <chrono>
#include <cstdlib>
#include <string_view>

#include "platform/processes/process_setup.h"

namespace dunvey {
namespace {

constexpr std::string_view kPath = "PATH=";
constexpr std::string_view kMark = "DUNVEY_OPENING=";
/// A function exported by an interactive bash would take precedence over the program of that name.
constexpr std::string_view kFunction = "BASH_FUNC_";
constexpr long kMaxRestarts = 3;
constexpr long kQuickSeconds = 20;

long Now() {
    using namespace std::chrono;
    return static_cast<long>(
        duration_cast<seconds>(steady_clock::now().time_since_epoch()).count());
}

/// How many quick restarts led to this process; 0 without a valid DUNVEY_OPENING.
long Restarts() {
    for (const std::string& variable : StartEnvironment()) {
        if (!variable.starts_with(kMark)) continue;
        char* end = nullptr;
        const long count = std::strtol(variable.c_str() + kMark.size(), &end, 10);
        const long age = Now() - std::strtol(end, nullptr, 10);
        const bool isValid = count >= 0 && count <= kMaxRestarts && age >= 0 && age < kQuickSeconds;
        return isValid ? count : 0;
    }
    return 0;
}

}  // namespace

std::vector<std::string> EnvironmentWithPath(const std::string& path) {
    std::vector<std::string> environment = StartEnvironment();
    std::erase_if(environment, [](const std::string& variable) {
        return variable.starts_with(kPath) || variable.starts_with(kFunction) ||
               variable.starts_with(kMark);
    });
    environment.push_back(std::string(kPath) + path);
    environment.push_back(std::string(kMark) + std::to_string(Restarts() + 1) + " " +
                          std::to_string(Now()));
    return environment;
}

bool IsOpeningLoop() {
    return Restarts() >= kMaxRestarts;
}

}  // namespace dunvey
