#include "platform/linux/helpers/script_line.h"

#include <sys/stat.h>

#include <algorithm>
#include <string_view>

#include "platform/files/file_descriptor.h"

namespace dunvey {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string LastComponent(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string_view FirstWord(std::string_view text) {
    return text.substr(0, text.find_first_of(kBlanks));
}

/// The part of a file in which the kernel looks for the interpreter.
std::string FirstBytes(const std::string& path) {
    constexpr size_t kLimit = 256;
    // Opening some devices has side effects.
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    int error = 0;
    const FileDescriptor file = OpenRegularFile(path, error);
    std::string text(kLimit, '\0');
    const ssize_t count = file ? ReadFully(file.Get(), text.data(), kLimit) : -1;
    text.resize(count > 0 ? static_cast<size_t>(count) : 0);
    return text;
}

}  // namespace

ScriptLine::ScriptLine(const std::string& path) {
    const std::string text = FirstBytes(path);
    if (!text.starts_with("#!")) return;
    std::string_view line = Trimmed(std::string_view(text).substr(2, text.find('\n') - 2));
    interpreter_ = FirstWord(line);
    line = Trimmed(line.substr(interpreter_.size()));
    if (line.empty()) return;
    rest_.emplace_back(line);
    for (; !line.empty(); line = Trimmed(line.substr(FirstWord(line).size())))
        rest_.emplace_back(FirstWord(line));
}

bool ScriptLine::IsRunBy(const std::vector<std::string>& arguments) const {
    if (interpreter_.empty()) return false;
    // A search of PATH, as by `env`, may find the interpreter elsewhere: only its name counts.
    const std::string program = LastComponent(arguments[0]);
    const auto isProgram = [&](const std::string& word) { return LastComponent(word) == program; };
    auto place = arguments.begin();
    if (!isProgram(interpreter_) && std::none_of(rest_.begin(), rest_.end(), isProgram)) {
        place = std::find(arguments.begin(), arguments.end(), interpreter_);
        if (place == arguments.end()) return false;
    }
    return std::all_of(place + 1, arguments.end(), [this](const std::string& argument) {
        return std::find(rest_.begin(), rest_.end(), argument) != rest_.end();
    });
}

}  // namespace dunvey
