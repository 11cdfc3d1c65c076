#include "platform/linux/helpers/interpreter_line.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>

#include "platform/file_descriptor.h"

namespace dunvey {
namespace {

constexpr std::string_view kBlanks = " \t";
/// The kernel reads no more of a file to find its interpreter.
constexpr size_t kLineLimit = 256;

std::string_view Trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string_view BaseName(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    for (text = Trimmed(text); !text.empty(); text = Trimmed(text)) {
        const size_t length = std::min(text.find_first_of(kBlanks), text.size());
        words.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return words;
}

InterpreterLine Parse(std::string_view line) {
    if (!line.starts_with("#!")) return {};
    line = Trimmed(line.substr(2, line.find('\n') - 2));
    const size_t length = std::min(line.find_first_of(kBlanks), line.size());
    return {std::string(line.substr(0, length)), std::string(Trimmed(line.substr(length)))};
}

}  // namespace

InterpreterLine ReadInterpreterLine(const std::string& path) {
    struct stat status;
    // Asked ahead of the opening: to open some devices is already to act on them.
    if (Uninterrupted([&] { return stat(path.c_str(), &status); }) != 0) return {};
    if (!S_ISREG(status.st_mode)) return {};
    int error = 0;
    const FileDescriptor file = OpenRegularFile(path, error);
    if (!file) return {};
    std::array<char, kLineLimit> buffer;
    const ssize_t count = ReadFully(file.Get(), buffer.data(), buffer.size());
    return count > 0 ? Parse({buffer.data(), static_cast<size_t>(count)}) : InterpreterLine();
}

bool StartsWith(const InterpreterLine& line, const std::vector<std::string_view>& words) {
    const std::vector<std::string_view> arguments = Words(line.argument);
    // By the last element: a search of the PATH or an own environment may lead elsewhere.
    const auto isProgram = [&](std::string_view name) {
        return BaseName(name) == BaseName(words.front());
    };
    const auto isArgument = [&](std::string_view word) {
        return word == line.argument ||
               std::find(arguments.begin(), arguments.end(), word) != arguments.end();
    };
    const bool isStarted =
        isProgram(line.interpreter) || std::any_of(arguments.begin(), arguments.end(), isProgram);
    return isStarted && std::all_of(words.begin() + 1, words.end(), isArgument);
}

}  // namespace dunvey
