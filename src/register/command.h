#pragma once

#include <string>
#include <vector>

#include "register/request.h"

namespace dunvey {

/// The command that a registered application runs.
struct Command {
    /// The absolute path of a Wine prefix; empty if the command isn't a Windows program.
    std::string winePrefix;
    /// The absolute path of the program and its arguments. With a Wine prefix the program is Wine
    /// and the first argument the Windows program's absolute path.
    std::vector<std::string> arguments;
};

/// The command of a request, with absolute paths; a program without a slash is looked up in PATH.
/// Raises Refusal if a file of it is missing, or if it would start Dunvey again.
Command ResolveCommand(const Request& request);

/// The files that the command needs to start.
std::vector<std::string> RequiredFiles(const Command& command);

/// Whether the command is known to end before the program that it starts, so that the application
/// wouldn't count as running.
bool ReturnsAtOnce(const Command& command);

/// The arguments quoted for a shell, with a blank after each.
std::string ShellWords(const std::vector<std::string>& arguments);

/// The command as one line of valid UTF-8, quoted as for a shell.
std::string ShownCommand(const Command& command);

/// Converts the command to hexadecimal text and back.
std::string EncodeCommand(const Command& command);
Command DecodeCommand(const std::string& text);

}  // namespace dunvey
