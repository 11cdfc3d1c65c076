#include "platform/linux/helpers/process_list.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>

#include "platform/files/file_descriptor.h"
#include "platform/files/path.h"
#include "platform/linux/helpers/folder_names.h"
#include "platform/linux/helpers/script_line.h"
#include "platform/linux/program_link.h"

namespace dunvey::ProcessList {
namespace {

constexpr size_t kMaxArguments = 8;

std::string FileOf(pid_t id, const char* name) {
    return "/proc/" + std::to_string(id) + "/" + name;
}

/// The start of a file in /proc, up to `limit` bytes.
std::string ReadStart(const std::string& path, size_t limit) {
    const FileDescriptor file = OpenFile(path, O_RDONLY);
    std::string text(limit, '\0');
    // One read returns the whole file.
    const ssize_t count =
        file ? Uninterrupted([&] { return read(file.Get(), text.data(), limit); }) : -1;
    text.resize(count > 0 ? static_cast<size_t>(count) : 0);
    return text;
}

/// Retries for 2 ms: while a process executes a new program, as `env` does, it has no arguments.
std::vector<std::string> SettledArguments(pid_t id) {
    constexpr timespec kPause{0, 100'000};
    std::vector<std::string> arguments = Arguments(id);
    for (int i = 0; i < 20 && arguments.empty(); ++i) {
        nanosleep(&kPause, nullptr);
        arguments = Arguments(id);
    }
    return arguments;
}

/// The script in a bundle that the process runs, by its arguments; empty if there is none.
std::string BundleScript(pid_t id, const std::vector<std::string>& arguments) {
    std::string folder;  // the current one, read for the first relative argument
    for (size_t i = 1; i < arguments.size(); ++i) {
        std::string path = arguments[i];
        if (path.empty() || path[0] == '-') continue;
        // Most relative arguments are no scripts. A script's path nearly always has a slash; only
        // `sh script` is commonly typed without one.
        if (path.find('/') == path.npos && !arguments[0].ends_with("sh")) continue;
        if (path[0] != '/') {
            if (folder.empty()) folder = ProgramLink(FileOf(id, "cwd"));
            path = folder + "/" + path.substr(path.starts_with("./") ? 2 : 0);
        }
        if (!IsInBundle(path)) continue;
        if (ScriptLine(path).IsRunBy({arguments.begin(), arguments.begin() + i}))
            return WithRealFolder(path);
    }
    return {};
}

}  // namespace

std::vector<pid_t> Ids() {
    const auto names = FolderNames("/proc");
    if (!names) return {};
    std::vector<pid_t> ids;
    for (const std::string& name : *names) {
        const pid_t id = std::atoi(name.c_str());  // 0 for a name that is no number
        if (id > 0) ids.push_back(id);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::string Program(pid_t id) {
    const std::string executable = ProgramLink(FileOf(id, "exe"));
    const bool isHidden = executable.empty() && errno == EACCES;
    if (executable.empty() && !isHidden) return {};
    const std::vector<std::string> arguments = isHidden ? Arguments(id) : SettledArguments(id);
    const std::string script = BundleScript(id, arguments);
    if (!script.empty()) return script;
    if (IsInBundle(executable) || arguments.empty() || !IsInBundle(arguments[0])) return executable;
    // A link in the bundle to a program elsewhere. The kernel doesn't show another user's
    // executable.
    const bool isProgram = isHidden || IsSameFile(arguments[0], FileOf(id, "exe"));
    return isProgram ? WithRealFolder(arguments[0]) : executable;
}

std::vector<std::string> Arguments(pid_t id) {
    const std::string text = ReadStart(FileOf(id, "cmdline"), 8192);
    std::vector<std::string> arguments;
    for (size_t begin = 0; begin < text.size() && arguments.size() < kMaxArguments;) {
        const size_t end = text.find('\0', begin);
        if (end == text.npos) break;  // the last one isn't complete
        arguments.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return arguments;
}

std::string Variable(pid_t id, const std::string& name) {
    constexpr size_t kLimit = size_t{2} << 20;
    const std::string text = '\0' + ReadStart(FileOf(id, "environ"), kLimit);
    const std::string start = '\0' + name + "=";
    const size_t place = text.find(start);
    if (place == text.npos) return {};
    return text.c_str() + place + start.size();
}

std::optional<std::vector<pid_t>> Of(const Bundle& bundle) {
    std::vector<pid_t> ids = Ids();
    if (ids.empty()) return std::nullopt;
    std::erase_if(ids, [&](pid_t id) { return !bundle.HasProgram(Program(id)); });
    return ids;
}

}  // namespace dunvey::ProcessList
