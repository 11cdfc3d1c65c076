#include "register/command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string_view>

#include "platform/files/folder_item.h"
#include "platform/files/path.h"
#include "platform/processes/error_line.h"
#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

using Arguments = std::vector<std::string>;

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

/// Refuses arguments that would start Dunvey or the application of this name again. Any argument
/// may be the program: commands such as `env` and `nice` start one that follows them.
void RefuseDunvey(const Arguments& arguments, const std::string& name) {
    for (const std::string& argument : arguments) {
        const std::string program = RealPath(FindProgram(argument));
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
    const FolderItem program(command.arguments.front());
    if (!FolderItem(command.winePrefix + "/dosdevices").Directory()) {
        throw Refusal{Quoted(prefix) +
                      " isn't a Wine prefix: it has no folder \"dosdevices\". "
                      "Create it with: env WINEPREFIX=" +
                      ShellWord(command.winePrefix) + " wineboot."};
    }
    if (!IsFile(program.NativePath(), R_OK)) {
        throw Refusal{Quoted(command.arguments.front()) +
                      " isn't a readable file. Give its path on Linux, such as " +
                      ShellWord(command.winePrefix + "/drive_c/Program Files/...") + "."};
    }
    command.arguments.front() = program.NativePath();
    command.arguments.insert(command.arguments.begin(), RequireProgram("wine"));
}

/// Whether an argument's last path component is among the names; ASCII letter case is ignored.
bool HasName(const Arguments& arguments, const std::set<std::string_view>& names) {
    return std::any_of(arguments.begin(), arguments.end(), [&](const std::string& each) {
        return names.count(Lowercase(FolderItem(each).Name())) != 0;
    });
}

}  // namespace

Command ResolveCommand(const Request& request) {
    Command command{{}, request.command};
    if (request.winePrefix.empty())
        command.arguments.front() = RequireProgram(command.arguments.front());
    else
        AddWine(command, request.winePrefix);
    RefuseDunvey(command.arguments, request.name);
    return command;
}

std::vector<std::string> RequiredFiles(const Command& command) {
    const size_t count = command.winePrefix.empty() || command.arguments.size() < 2 ? 1 : 2;
    return {command.arguments.begin(), command.arguments.begin() + static_cast<ptrdiff_t>(count)};
}

bool ReturnsAtOnce(const Command& command) {
    const Arguments& arguments = command.arguments;
    const bool isBackground =
        std::any_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
            return argument.ends_with("&") || argument.ends_with("& ");
        });
    if (HasName(arguments, {"wine", "wine64"}) && HasName(arguments, {"start", "start.exe"}))
        return !HasName(arguments, {"wait", "w"});
    return isBackground || HasName(arguments, {"xdg-open", "gio", "kde-open", "kde-open5",
                                               "exo-open", "gtk-launch"});
}

std::string ShellWords(const Arguments& arguments) {
    std::string line;
    for (const std::string& argument : arguments)
        line += ShellWord(argument) + " ";
    return line;
}

std::string ShownCommand(const Command& command) {
    const std::string prefix =
        command.winePrefix.empty() ? "" : "WINEPREFIX=" + ShellWord(command.winePrefix) + " ";
    std::string line = OneLine(prefix + ShellWords(command.arguments));
    line.pop_back();
    // The conversion replaces bytes that aren't valid UTF-8.
    const EncodedText wide = ConvertEncoding({line, Encodings::UTF8}, Encodings::UTF16);
    return ConvertEncoding(wide, Encodings::UTF8).Bytes;
}

std::string EncodeCommand(const Command& command) {
    std::string bytes = command.winePrefix;
    for (const std::string& argument : command.arguments)
        bytes.append(kSeparator).append(argument);
    return EncodeHex(bytes);
}

Command DecodeCommand(const std::string& text) {
    const Arguments arguments = SplitB(DecodeHex(text), kSeparator);
    return {arguments.front(), {arguments.begin() + 1, arguments.end()}};
}

}  // namespace dunvey
