#include "platform/linux/helpers/process_list.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/linux/helpers/interpreter_line.h"

namespace dunvey {
namespace {

constexpr size_t kWordsLimit = 8192;
/// A script stands among the first words: behind its interpreter, the interpreter's arguments, and
/// where the interpreter is a script again, behind that one's.
constexpr size_t kPlacesOfScript = 8;
constexpr std::string_view kDeleted = " (deleted)";
constexpr std::string_view kPrograms = "/Contents/MacOS/";

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::string ReadLink(int folder, const std::string& path) {
    std::array<char, PATH_MAX> buffer;
    const ssize_t length = readlinkat(folder, path.c_str(), buffer.data(), buffer.size());
    const bool isWhole = length > 0 && static_cast<size_t>(length) < buffer.size();
    return isWhole ? std::string(buffer.data(), static_cast<size_t>(length)) : std::string();
}

bool IsSameFile(int folder, const std::string& link, const std::string& path) {
    struct stat running;
    struct stat named;
    return fstatat(folder, link.c_str(), &running, 0) == 0 && stat(path.c_str(), &named) == 0 &&
           running.st_dev == named.st_dev && running.st_ino == named.st_ino;
}

/// The path in a link to an executable. The kernel marks a file that was deleted or replaced behind
/// its path; a file may as well be named like that.
std::string WithoutDeletedMark(int folder, const std::string& link, std::string path) {
    if (!path.ends_with(kDeleted) || IsSameFile(folder, link, path)) return path;
    path.resize(path.size() - kDeleted.size());
    return path;
}

/// Whether an absolute path leads through the programs of a bundle.
bool IsInBundle(const std::string& path) {
    return path.starts_with('/') && path.find(kPrograms) != std::string::npos;
}

bool IsLink(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// Whether an absolute path names a file in a roundabout way. The program of a bundle may well be a
/// link to one that is installed elsewhere, and is the bundle's all the same.
bool IsRoundabout(const std::string& path) {
    const auto has = [&](const char* part) { return path.find(part) != std::string::npos; };
    return has("//") || has("/./") || has("/../") || (!IsInBundle(path) && IsLink(path));
}

std::string Resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
}

/// Whether the executable is one that mostly runs scripts, by its name without a version.
bool IsUsualInterpreter(std::string_view executable) {
    static constexpr std::string_view kNames[] = {
        "sh",   "bash",   "dash", "ksh",  "mksh", "zsh", "fish",  "csh",  "tcsh",
        "perl", "python", "ruby", "node", "php",  "lua", "tclsh", "wish", "guile"};
    executable.remove_prefix(executable.rfind('/') + 1);
    executable = executable.substr(0, executable.find_first_of("0123456789."));
    return std::find(std::begin(kNames), std::end(kNames), executable) != std::end(kNames);
}

bool IsNoOption(const std::string& word) {
    return !word.empty() && word.front() != '-';
}

/// Whether a word that a process was started with ends in the kernel's name for the process, which
/// has the first 15 bytes of a file's name.
bool IsNamedAs(const std::string& word, const std::string& name) {
    constexpr size_t kNameLength = 15;
    return !name.empty() && word.substr(word.rfind('/') + 1, kNameLength) == name;
}

/// The ids in the order of the system; none if it doesn't tell all of them.
std::vector<pid_t> ReadIds() {
    std::vector<pid_t> ids;
    const std::unique_ptr<DIR, FolderCloser> entries(opendir("/proc"));
    if (!entries) return ids;
    errno = 0;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view name = entry->d_name;
        pid_t id = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
        if (error == std::errc() && end == name.data() + name.size()) ids.push_back(id);
        errno = 0;
    }
    if (errno != 0) ids.clear();
    return ids;
}

}  // namespace

/// Tells which of the words a process was started with are worth a look at the file. That is
/// another program's affair: it may lie on a mount that doesn't answer, or be mounted by the look
/// alone.
class ProcessList::ScriptHints {
 public:
    ScriptHints(const ProcessList& processes, const std::vector<std::string>& words, pid_t id,
                const std::string& executable)
        : processes_(processes),
          id_(id),
          isUsualInterpreter_(IsUsualInterpreter(executable)),
          // Asked to run a script, the kernel starts what the script names, by its path.
          mayBeStartedForScript_(!words.empty() && words[0].find('/') != std::string::npos) {}

    bool MayBeScript(const std::string& word) const {
        if (isUsualInterpreter_ || IsInBundle(word)) return true;
        if (!mayBeStartedForScript_) return false;
        // Then it names the process after the script. To read that is dear, as there are hundreds.
        if (!name_) name_ = processes_.Name(id_);
        return IsNamedAs(word, *name_);
    }

 private:
    const ProcessList& processes_;
    pid_t id_;
    bool isUsualInterpreter_;
    bool mayBeStartedForScript_;
    mutable std::optional<std::string> name_;
};

ProcessList::ProcessList() : folder_(OpenFile("/proc", O_RDONLY | O_DIRECTORY)) {}

std::vector<pid_t> ProcessList::Ids() const {
    // Without its folder nothing could be told of a process either.
    if (!folder_) return {};
    std::vector<pid_t> ids = ReadIds();
    // What hinders the reading is often over at once.
    if (ids.empty()) ids = ReadIds();
    std::sort(ids.begin(), ids.end());
    return ids;
}

ProgramFile ProcessList::Program(pid_t id) const {
    const std::string link = std::to_string(id) + "/exe";
    std::string executable = ReadLink(folder_.Get(), link);
    if (!executable.starts_with('/')) return {};
    const std::vector<std::string> words = SettledWords(id);
    std::string script = ScriptAmong(words, id, executable);
    if (!script.empty()) return {std::move(script), true};
    const bool isStartedInBundle = !words.empty() && IsInBundle(words[0]) &&
                                   !IsRoundabout(words[0]) &&
                                   IsSameFile(folder_.Get(), link, words[0]);
    if (isStartedInBundle) return {words[0], true};
    return {WithoutDeletedMark(folder_.Get(), link, std::move(executable)), false};
}

std::string ProcessList::ScriptAmong(const std::vector<std::string>& words, pid_t id,
                                     const std::string& executable) const {
    const ScriptHints hints(*this, words, id, executable);
    std::string script;
    std::vector<std::string_view> before;
    for (size_t i = 0; i < std::min(words.size(), kPlacesOfScript); ++i) {
        if (i > 0 && IsNoOption(words[i]) && hints.MayBeScript(words[i])) {
            const bool isAbsolute = words[i].front() == '/';
            const std::string path = isAbsolute ? words[i] : CurrentFolder(id) + "/" + words[i];
            const InterpreterLine line = ReadInterpreterLine(path);
            if (line && StartsWith(line, before)) {
                script = isAbsolute && !IsRoundabout(path) ? path : Resolved(path);
                before.clear();  // the interpreter of a further script, if there is one
            }
        }
        before.push_back(words[i]);
    }
    return script;
}

std::string ProcessList::CurrentFolder(pid_t id) const {
    return ReadLink(folder_.Get(), std::to_string(id) + "/cwd");
}

std::vector<std::string> ProcessList::SettledWords(pid_t id) const {
    constexpr timespec kPause{0, 100'000};
    constexpr int kPauses = 20;
    std::vector<std::string> words = Words(id);
    for (int i = 0; i < kPauses && words.empty(); ++i) {
        nanosleep(&kPause, nullptr);
        words = Words(id);
    }
    return words;
}

std::string ProcessList::Name(pid_t id) const {
    std::array<char, 64> buffer;
    const std::string_view name = Read(std::to_string(id) + "/comm", '\n', buffer);
    return std::string(name.substr(0, name.find('\n')));
}

std::string_view ProcessList::Read(const std::string& path, char end,
                                   std::span<char> buffer) const {
    const FileDescriptor file(
        Uninterrupted([&] { return openat(folder_.Get(), path.c_str(), O_RDONLY | O_CLOEXEC); }));
    size_t count = 0;
    while (file && count < buffer.size() && (count == 0 || buffer[count - 1] != end)) {
        const ssize_t got =
            Uninterrupted([&] { return read(file.Get(), &buffer[count], buffer.size() - count); });
        if (got <= 0) break;
        count += static_cast<size_t>(got);
    }
    return {buffer.data(), count};
}

std::vector<std::string> ProcessList::Words(pid_t id) const {
    std::array<char, kWordsLimit> buffer;
    std::string_view rest = Read(std::to_string(id) + "/cmdline", '\0', buffer);
    std::vector<std::string> words;
    for (size_t end; (end = rest.find('\0')) != std::string_view::npos;) {
        words.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    return words;
}

}  // namespace dunvey
