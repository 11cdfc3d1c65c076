#include "register/command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <set>
#include <string_view>

#include "platform/files/folder_item.h"
#include "platform/processes/error_line.h"
#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view kSeparator("\0", 1);

bool IsFile(const std::string& path, int permission) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(path.c_str(), permission) == 0;
}

/// The absolute path of a program, which is a path or looked up in PATH; empty if there is none.
std::string FindProgram(const std::string& program) {
    const bool isPath = program.find('/') != std::string::npos;
    const char* search = isPath ? "" : std::getenv("PATH");
    for (const std::string& folder : SplitB(search != nullptr ? search : "/usr/bin:/bin", ":")) {
        const FolderItem item(folder.empty() ? program : folder + "/" + program);
        if (IsFile(item.NativePath(), X_OK)) return item.NativePath();
    }
    return {};
}

std::string RequireProgram(const std::string& program) {
    std::string path = FindProgram(program);
    if (!path.empty()) return path;
    const size_t equals = program.find('=');
    if (equals != 0 && equals < program.find('/')) {
        throw Refusal{Quoted(program) +
                      " sets a variable and is no program. Put \"env\" in front "
                      "of it: env " +
                      program + " PROGRAM."};
    }
    throw Refusal{Quoted(program) +
                  " isn't an executable file or a program in a folder of PATH. "
                  "Install it, give its path, or use chmod +x."};
}

/// Refuses a command with a word that starts Dunvey or the application of this name again.
void RefuseDunvey(const Words& words, const std::string& name) {
    for (const std::string& word : words) {
        const std::unique_ptr<char, decltype(&std::free)> resolved(
            realpath(FindProgram(word).c_str(), nullptr), &std::free);
        const std::string program = resolved ? resolved.get() : "";
        if (program.ends_with("/Dunvey.app/Contents/MacOS/Dunvey") ||
            program.ends_with("/" + name + ".app/Contents/MacOS/" + name)) {
            throw Refusal{Quoted(program) +
                          " is Dunvey itself or this application, which would "
                          "start again and again. Give another command."};
        }
    }
}

void AddWine(Command& command, const std::string& prefix) {
    command.winePrefix = FolderItem(prefix).NativePath();
    const FolderItem program(command.words.front());
    if (!FolderItem(command.winePrefix + "/dosdevices").Directory()) {
        throw Refusal{Quoted(prefix) +
                      " isn't a Wine prefix: it has no folder \"dosdevices\". "
                      "Create it with: env WINEPREFIX=" +
                      ShellWord(command.winePrefix) + " wineboot."};
    }
    if (!IsFile(program.NativePath(), R_OK)) {
        throw Refusal{Quoted(command.words.front()) +
                      " isn't a readable file. Give its path on Linux, such as " +
                      ShellWord(command.winePrefix + "/drive_c/Program Files/...") + "."};
    }
    command.words.front() = program.NativePath();
    command.words.insert(command.words.begin(), RequireProgram("wine"));
}

/// Whether the last path component of a word is among the names; ASCII letter case is ignored.
bool HasName(const Words& words, const std::set<std::string_view>& names) {
    return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
        return names.count(Lowercase(FolderItem(word).Name())) != 0;
    });
}

}  // namespace

Command ResolveCommand(const Request& request) {
    Command command{{}, request.command};
    if (request.winePrefix.empty())
        command.words.front() = RequireProgram(command.words.front());
    else
        AddWine(command, request.winePrefix);
    RefuseDunvey(command.words, request.name);
    return command;
}

std::vector<std::string> RequiredFiles(const Command& command) {
    const size_t count = command.winePrefix.empty() || command.words.size() < 2 ? 1 : 2;
    return {command.words.begin(), command.words.begin() + static_cast<ptrdiff_t>(count)};
}

bool ReturnsAtOnce(const Command& command) {
    const Words& words = command.words;
    const bool isBackground = std::any_of(words.begin(), words.end(), [](const std::string& word) {
        return word.ends_with("&") || word.ends_with("& ");
    });
    if (HasName(words, {"wine", "wine64"}) && HasName(words, {"start", "start.exe"}))
        return !HasName(words, {"wait", "w"});
    return isBackground ||
           HasName(words, {"xdg-open", "gio", "kde-open", "kde-open5", "exo-open", "gtk-launch"});
}

std::string ShellWords(const Words& words) {
    std::string line;
    for (const std::string& word : words)
        line += ShellWord(word) + " ";
    return line;
}

std::string ShownCommand(const Command& command) {
    const std::string prefix =
        command.winePrefix.empty() ? "" : "WINEPREFIX=" + ShellWord(command.winePrefix) + " ";
    std::string line = OneLine(prefix + ShellWords(command.words));
    line.pop_back();
    // The conversion replaces bytes that aren't valid UTF-8.
    const EncodedText wide = ConvertEncoding({line, Encodings::UTF8}, Encodings::UTF16);
    return ConvertEncoding(wide, Encodings::UTF8).Bytes;
}

std::string EncodeCommand(const Command& command) {
    std::string bytes = command.winePrefix;
    for (const std::string& word : command.words)
        bytes.append(kSeparator).append(word);
    return EncodeHex(bytes);
}

Command DecodeCommand(const std::string& text) {
    const Words words = SplitB(DecodeHex(text), kSeparator);
    return {words.front(), {words.begin() + 1, words.end()}};
}

}  // namespace dunvey
