#include "register/version_check.h"

#include <algorithm>

#include "platform/text/text.h"
#include "register/refusal.h"
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

/// The version that a name stands for: that of the longest suffix of a version that it begins with;
/// empty if there is none.
std::string VersionOfName(const std::string& name) {
    // Dunvey takes each such application for version 2.
    if (name.find("2.0") != std::string::npos) return "2";
    const std::string suffix = name.substr(name.find(' ', name.find(' ') + 1) + 1) + " ";
    std::string found;
    size_t length = 0;
    for (int major = 1; major < 100; ++major) {
        for (const std::string& version : {Str(major), Str(major) + ".5"}) {
            if (version != DocumentVersion(version)) continue;
            const std::string candidate = InDesign::GetAppName(version) + " ";
            if (!suffix.starts_with(candidate) || candidate.size() <= length) continue;
            found = version;
            length = candidate.size();
        }
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
        throw Refusal{"version " + own + " is there already: " + Quoted(each->NativePath()) +
                      ". Dunvey would open its documents in only one of the two." + kForce};
    }
}

bool IsLowerVersion(const std::string& left, const std::string& right) {
    const std::vector<std::string> leftFields = SplitB(left, ".");
    const std::vector<std::string> rightFields = SplitB(right, ".");
    return std::lexicographical_compare(
        leftFields.begin(), leftFields.end(), rightFields.begin(), rightFields.end(),
        [](const std::string& one, const std::string& other) { return Val(one) < Val(other); });
}

}  // namespace dunvey
