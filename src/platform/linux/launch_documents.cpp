#include "platform/loop/launch_documents.h"

#include <unistd.h>

#include <climits>

#include "platform/loop/application.h"
#include "platform/processes/error_line.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop& loop) {
    const Intake intake = TakeIn(launchArguments, Application::Current()->DocumentExtensions());
    for (const std::string& refusal : intake.refusals)
        WriteErrorLine("Dunvey: " + refusal);
    for (const std::string& path : intake.documents)
        loop.PostOpenDocument(New<FolderItem>(path));
    // In a removed folder each shell first prints a warning. If standard error is a closed pipe,
    // SIGPIPE then ends it before its command.
    char folder[PATH_MAX];
    if (getcwd(folder, sizeof folder) == nullptr && chdir("/") != 0)
        WriteErrorLine("Dunvey: the current folder was removed, and / can't be used instead.");
}

}  // namespace dunvey
