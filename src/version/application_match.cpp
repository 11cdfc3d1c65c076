#include "version/application_match.h"

#include "platform/text/text.h"
#include "version/application_version.h"
#include "version/installed_apps.h"
#include "version/version_name.h"

namespace dunvey::InDesign {
namespace {

/// Compares text: "7" is the first field of both 7.0.4 and 7.5.3.
bool Matches(const std::string& applicationVersion, const std::string& documentVersion) {
    const std::vector<std::string> fields = SplitB(applicationVersion, ".");
    if (fields[0] == documentVersion) return true;
    return fields.size() > 1 && fields[0] == "7" && fields[1] == "5" && documentVersion == "7.5";
}

}  // namespace

void MatchApplication(FileClass& record) {
    for (const Ref<FolderItem>& application : InstalledApps) {
        if (Matches(AppVersion(application), record.Ver)) {
            record.AppName = application->Name();
            record.App = application;
            record.WillUseApp = application;
        } else {
            record.AppName = "Adobe InDesign " + GetAppName(record.Ver) + ".app";
        }
    }
}

}  // namespace dunvey::InDesign
