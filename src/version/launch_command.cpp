#include "version/launch_command.h"

#include "platform/processes/error_line.h"
#include "platform/processes/shell.h"

namespace dunvey::InDesign {

void OpenWith(const Ref<FolderItem>& application, const std::string& files) {
    if (files.empty()) return;
    if (!application) {
        WriteErrorLine("Dunvey: no application was found or chosen. Not opened: " + files);
        return;
    }
    const std::string path = application->ShellPath();
    if (!application->Exists()) {
        WriteErrorLine("Dunvey: " + path + " no longer exists. Not opened: " + files);
        return;
    }
    Shell shell;
    shell.Execute("open -a " + path + " " + files + " && open " + path);
}

}  // namespace dunvey::InDesign
