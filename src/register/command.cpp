#include "register/command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "platform/files/folder_item.h"
#include "platform/text/encoding.h"
#include "platform/text/hex_text.h"
#include "platform/text/shown_text.h"
#include "platform/text/text.h"
#include "register/refusal.h"

namespace dunvey {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view kSeparator("\0", 1);

bool IsFile(const std::string& path, int permission) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(path.c_str(), permission) == 0;
}

std::string LastComponent(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// The absolute path of a program; empty if there is none.
std::string FindProgram(const std::string& program) {
    const bool isPath = program.find('/') != std::string::npos;
    const char* search = isPath ? "" : std::getenv("PATH");
    for (const std::string& folder : SplitB(search != nullptr ? search : "/usr/bin:/bin", ":")) {
        const std::string path = isPath || folder.empty() ? program : folder + "/" + program;
        const std::string absolute = FolderItem(path).NativePath();
        if (IsFile(absolute, X_OK)) return absolute;
    }
    return {};
}

[[noreturn]] void RefuseProgram(const std::string& program) {
    const size_t equals = program.find('=');
    if (equals != 0 && equals < program.find('/')) {
        throw Refusal{Quoted(program) +
                      " sets a variable and is no program. Put \"env\" in front of it: env " +
                      program + " PROGRAM."};
    }
    if (program.find('/') == std::string::npos) {
        throw Refusal{"there is no program " + Quoted(program) +
                      " in the folders of PATH. Install it or give its path."};
    }
    throw Refusal{Quoted(program) +
                  " isn't an executable file. Give the path of one, or use chmod +x."};
}

std::string ProgramPath(const std::string& program) {
    std::string path = FindProgram(program);
    if (path.empty()) RefuseProgram(program);
    return path;
}

std::string Resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr),
                                                               &std::free);
    return resolved ? resolved.get() : path;
}

/// The words from the program on that `env` would start; all words if they don't start with `env`.
Words WithoutEnv(const Words& words) {
    if (words.empty() || LastComponent(words.front()) != "env") return words;
    const auto program = std::find_if(words.begin() + 1, words.end(), [](const std::string& word) {
        return !word.starts_with('-') && word.find('=') == std::string::npos;
    });
    return {program, words.end()};
}

void RefuseDunvey(const Words& words, const std::string& name) {
    const Words rest = WithoutEnv(words);
    const std::string program = rest.empty() ? "" : Resolved(FindProgram(rest.front()));
    const bool isDunvey = program.ends_with("/Dunvey.app/Contents/MacOS/Dunvey");
    const std::string ownScript = "/" + name + ".app/Contents/MacOS/" + name;
    if (!isDunvey && !program.ends_with(ownScript)) return;
    throw Refusal{Quoted(program) + (isDunvey ? " is Dunvey itself" : " is the application itself") +
                  ", which would start again and again. Give the command of another program."};
}

void AddWine(Command& command, const std::string& prefix) {
    command.winePrefix = FolderItem(prefix).NativePath();
    if (!FolderItem(command.winePrefix + "/dosdevices").Directory()) {
        throw Refusal{Quoted(prefix) + " isn't a Wine prefix: it has no folder \"dosdevices\". "
                                       "Create it with: env WINEPREFIX=" +
                      ShellWord(command.winePrefix) + " wineboot."};
    }
    std::string& program = command.words.front();
    const std::string path = FolderItem(program).NativePath();
    if (!IsFile(path, R_OK)) {
        throw Refusal{Quoted(program) + " isn't a readable file. Give the path that it has on "
                                        "Linux, such as " +
                      ShellWord(command.winePrefix + "/drive_c/Program Files/...") + "."};
    }
    program = path;
    command.words.insert(command.words.begin(), ProgramPath("wine"));
}

bool HasWord(const Words& words, std::string_view wanted) {
    return std::any_of(words.begin(), words.end(),
                       [&](const std::string& word) { return Lowercase(word) == wanted; });
}

}  // namespace

Command ResolveCommand(const Request& request) {
    Command command{{}, request.command};
    if (request.winePrefix.empty()) {
        command.words.front() = ProgramPath(command.words.front());
    } else {
        AddWine(command, request.winePrefix);
    }
    RefuseDunvey(command.words, request.name);
    return command;
}

std::vector<std::string> RequiredFiles(const Command& command) {
    const size_t count = command.winePrefix.empty() ? 1 : 2;
    return {command.words.begin(),
            command.words.begin() + static_cast<ptrdiff_t>(std::min(count, command.words.size()))};
}

bool ReturnsAtOnce(const Command& command) {
    constexpr std::array<std::string_view, 11> kOpeners = {
        "xdg-open", "gio",        "gnome-open", "kde-open",    "kde-open5", "kde-open6",
        "exo-open", "gtk-launch", "dex",        "kioclient",   "open"};
    const Words words = WithoutEnv(command.words);
    if (words.empty()) return false;
    const std::string name = LastComponent(words.front());
    if (std::find(kOpeners.begin(), kOpeners.end(), name) != kOpeners.end()) return true;
    const bool isWine = name.starts_with("wine");
    const bool starts = HasWord(words, "start") || HasWord(words, "start.exe");
    if (isWine && starts) return !HasWord(words, "/wait") && !HasWord(words, "/w");
    if (name == "systemd-run") return !HasWord(words, "--wait") && !HasWord(words, "--scope");
    if (!name.ends_with("sh") || words.size() < 3 || words[1] != "-c") return false;
    const size_t last = words[2].find_last_not_of(" \n");
    return last != std::string::npos && words[2][last] == '&';
}

std::string ShownCommand(const Command& command) {
    std::string line;
    if (!command.winePrefix.empty()) line = "WINEPREFIX=" + ShellWord(command.winePrefix) + " ";
    for (const std::string& word : command.words)
        line += ShellWord(word) + " ";
    line = OneLine(line);
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
