#include "platform/processes/apple_script.h"

#include "platform/processes/shell.h"

namespace dunvey {
std::string ExecuteAppleScript(const Ref<FolderItem>& script,
                               const std::vector<std::string>& arguments) {
    std::string command = ScriptRunner() + " " + script->ShellPath();
    for (const std::string& argument : arguments)
        command += " " + ShellWord(argument);
    // The exit code is on the last line. A shell that never ran prints none.
    command += "; printf '\\n%d' $?";
    Shell shell;
    shell.Execute(command);
    const std::string& output = shell.Result();
    const size_t end = output.rfind('\n');
    if (end == output.npos) return "The script wasn't run.";
    std::string result = output.substr(0, end);
    result.erase(result.find_last_not_of('\n') + 1);
    const std::string exitCode = output.substr(end + 1);
    if (exitCode == "0" || !result.empty()) return result;
    return "The script ended with " + exitCode + ".";
}

}  // namespace dunvey
