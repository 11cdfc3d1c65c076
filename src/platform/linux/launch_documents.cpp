#include "platform/loop/launch_documents.h"

#include "platform/loop/application.h"
#include "platform/processes/error_line.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop& loop) {
    const Intake intake = TakeIn(launchArguments, Application::Current()->DocumentExtensions());
    for (const std::string& refusal : intake.refusals)
        WriteErrorLine("Dunvey: " + refusal);
    for (const std::string& path : intake.documents)
        loop.PostOpenDocument(New<FolderItem>(path));
}

}  // namespace dunvey
