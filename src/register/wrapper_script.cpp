#include "register/wrapper_script.h"

#include "platform/files/folder_item.h"
#include "register/wrapper_body.h"

namespace dunvey {

std::string WrapperScript(const std::string& name, const Command& command) {
    const auto joined = [](const std::vector<std::string>& words) {
        std::string line;
        for (const std::string& word : words)
            line += ShellWord(word) + " ";
        return line;
    };
    const bool isWine = !command.winePrefix.empty();
    std::string script = "#!/bin/sh\n# Written by dunvey-register, which can also remove it.\n";
    script += "name=" + ShellWord(name) + "\n";
    script += "wine=" + (isWine ? ShellWord(command.words[0]) : std::string()) + "\n";
    if (isWine) script += "export WINEPREFIX=" + ShellWord(command.winePrefix) + "\n";
    script += "find_missing() {\n    for file in " + joined(RequiredFiles(command)) +
              "; do\n        [ -e \"$file\" ] || return\n    done\n    file=\n}\n";
    script += "start() {\n    run " + joined(command.words) + "\"$@\"\n}\n\n";
    return script + kWrapperBody;
}

}  // namespace dunvey
