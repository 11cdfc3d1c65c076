#include "version/launch_command.h"

#include "platform/shell.h"

namespace dunvey::InDesign {

void OpenWith(const Ref<FolderItem>& application, const std::string& files) {
    if (!application || !application->Exists() || files.empty()) return;
    const std::string path = application->ShellPath();
    Shell shell;
    shell.Execute("open -a " + path + " " + files + " && open " + path);
}

}  // namespace dunvey::InDesign
