#include "version/launch_command.h"

#include <cstdio>

#include "platform/processes/shell.h"

namespace dunvey::InDesign {

void OpenWith(const Ref<FolderItem>& application, const std::string& files) {
    if (!application || files.empty()) return;
    const std::string path = application->ShellPath();
    if (!application->Exists()) {
        // It was there when the documents were judged. Nobody is asked again, but it can be found
        // out.
        const std::string line = "Dunvey: " + path + " is gone. Not opened: " + files + "\n";
        std::fputs(line.c_str(), stderr);
        return;
    }
    Shell shell;
    shell.Execute("open -a " + path + " " + files + " && open " + path);
}

}  // namespace dunvey::InDesign
