#include "platform/linux/helpers/bundle_processes.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

namespace dunvey {

namespace {

/// The path with the links of its folders resolved. The last element stays: a bundle's program may
/// be a link that leads elsewhere.
std::string WithRealFolder(const std::string& path) {
    const size_t name = path.rfind('/');
    const std::unique_ptr<char, decltype(&std::free)> folder(
        realpath(path.substr(0, name).c_str(), nullptr), &std::free);
    return folder ? folder.get() + path.substr(name) : path;
}

}  // namespace

bool BelongsTo(const Bundle& bundle, const ProcessList& processes, pid_t id) {
    const ProgramFile program = processes.Program(id);
    return bundle.HasProgram(program.hasLinks ? WithRealFolder(program.path) : program.path);
}

std::vector<pid_t> ProcessesOf(const Bundle& bundle, const ProcessList& processes) {
    std::vector<pid_t> ids;
    for (const pid_t id : processes.Ids()) {
        if (BelongsTo(bundle, processes, id)) ids.push_back(id);
    }
    return ids;
}

std::optional<bool> IsRunning(const Bundle& bundle, const ProcessList& processes) {
    const std::vector<pid_t> ids = processes.Ids();
    if (ids.empty()) return std::nullopt;
    // The newest first: an application is most often asked about when it has just been started.
    return std::any_of(ids.rbegin(), ids.rend(),
                       [&](pid_t id) { return BelongsTo(bundle, processes, id); });
}

}  // namespace dunvey
