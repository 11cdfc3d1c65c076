#include "platform/processes/apple_script.h"

#include "platform/processes/script_runner.h"
#include "platform/processes/shell.h"

namespace dunvey {
namespace {

/// The text without line feeds at its end.
std::string Trimmed(const std::string& text) {
    return text.substr(0, text.find_last_not_of('\n') + 1);
}

}  // namespace

std::string ExecuteAppleScript(const Ref<FolderItem>& script,
                               const std::vector<std::string>& arguments) {
    std::string command = ScriptRunner() + " " + script->ShellPath();
    for (const std::string& argument : arguments)
        command += " " + ShellWord(argument);
    // The exit code stands on a line of its own behind everything else. A shell that never ran
    // leaves none, so silence alone is no success.
    command += "; printf '\\n%d' $?";
    Shell shell;
    shell.Execute(command);
    const std::string& output = shell.Result();
    const size_t end = output.rfind('\n');
    if (end == output.npos) return "The script wasn't run.";
    std::string result = Trimmed(output.substr(0, end));
    const std::string exitCode = output.substr(end + 1);
    if (exitCode == "0" || !result.empty()) return result;
    return "The script ended with " + exitCode + ".";
}

}  // namespace dunvey
