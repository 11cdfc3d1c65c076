#include "register/command_path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/files/folder_item.h"
#include "platform/text/text.h"
#include "register/message.h"
#include "register/request.h"

namespace dunvey {
namespace {

std::string Absolute(const std::string& path) {
    return FolderItem(path).NativePath();
}

bool IsProgram(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string CommandPath(const std::string& command) {
    if (command.find('/') != std::string::npos) {
        std::string path = Absolute(command);
        if (IsProgram(path)) return path;
        throw Refusal{Quoted(command) +
                      " is no program that you may start. Give the path of one, and allow it with "
                      "chmod +x."};
    }
    const char* search = std::getenv("PATH");
    for (const std::string& folder : SplitB(search != nullptr ? search : "/usr/bin:/bin", ":")) {
        std::string path = Absolute((folder.empty() ? "." : folder) + "/" + command);
        if (IsProgram(path)) return path;
    }
    throw Refusal{"there is no program " + Quoted(command) +
                  " in the folders of PATH. Install it or give its path."};
}

}  // namespace dunvey
