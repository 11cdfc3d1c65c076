#include "register/version_check.h"

#include "platform/processes/error_line.h"
#include "platform/text/text.h"
#include "register/request.h"
#include "version/application_version.h"
#include "version/installed_apps.h"
#include "version/version_name.h"

namespace dunvey {
namespace {

constexpr const char* kForce = " Correct that, or add --force to register it anyway.";

/// The version text of the documents that an application of this version opens.
std::string DocumentVersion(const std::string& version) {
    const std::string major = NthField(version, ".", 1);
    return major == "7" && NthField(version, ".", 2) == "5" ? "7.5" : major;
}

/// The version that a name stands for: the one with the longest name that it begins with. Empty if
/// there is none.
std::string VersionOfName(const std::string& name) {
    // Dunvey treats each such application as version 2.
    if (name.find("2.0") != std::string::npos) return "2";
    std::string found;
    std::string longest;
    for (int half = 2; half < 200; ++half) {
        const std::string version = half == 15 ? "7.5" : Str(int64_t{half / 2});
        const std::string named = "Adobe InDesign " + InDesign::GetAppName(version) + " ";
        if (!(name + " ").starts_with(named) || named.size() <= longest.size()) continue;
        found = version;
        longest = named;
    }
    return found;
}

}  // namespace

void CheckVersionFits(const std::string& name, const std::string& version) {
    const std::string own = DocumentVersion(version);
    const std::string named = VersionOfName(name);
    if (!named.empty() && named != own) {
        throw Refusal{Quoted(name) + " is the name of version " + named + ", not of version " +
                      own + "." + kForce};
    }
    InDesign::GetInstalledApps();
    for (const Ref<FolderItem>& each : InDesign::InstalledApps) {
        if (each->Name() == name + ".app" || DocumentVersion(InDesign::AppVersion(each)) != own)
            continue;
        throw Refusal{"version " + own + " is already installed: " + Quoted(each->NativePath()) +
                      ". Dunvey would open its documents in only one of the two." + kForce};
    }
}

}  // namespace dunvey
