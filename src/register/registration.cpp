#include "register/registration.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "platform/bundles/property_list.h"
#include "platform/files/special_folder.h"
#include "register/icon_file.h"
#include "register/locked_applications.h"
#include "register/refusal.h"
#include "register/version_check.h"
#include "register/wrapper_script.h"

namespace dunvey {
namespace {

constexpr const char* kListName = "Info.plist";
constexpr const char* kProgramsName = "MacOS";
constexpr const char* kResourcesName = "Resources";
constexpr mode_t kReadable = 0644;
constexpr mode_t kExecutable = 0755;
/// Of a script or an icon in bytes; larger ones weren't written by dunvey-register.
constexpr size_t kFileLimit = 17 * 1024 * 1024;

/// An application's folders; each is none if it is missing or a link.
struct Application {
    Application(const Folder& applications, std::string applicationName)
        : name(std::move(applicationName)),
          outer(applications.Child(name)),
          bundle(outer.Child(name + ".app")),
          contents(bundle.Child("Contents")),
          programs(contents.Child(kProgramsName)),
          resources(contents.Child(kResourcesName)) {
        if (contents)
            record = ReadRecord(name, contents.Read(kListName, kPropertyListLimit + 1));
    }

    /// Whether the script or the icon is there and isn't the one that dunvey-register wrote.
    bool HasUsersScript() const {
        return IsUsers(programs, name, record->scriptFingerprint);
    }
    bool HasUsersIcon() const {
        return IsUsers(resources, kIconName, record->iconFingerprint);
    }

    std::string name;
    Folder outer;
    Folder bundle;
    Folder contents;
    Folder programs;
    Folder resources;
    /// None if it isn't registered.
    std::optional<ApplicationRecord> record;

 private:
    static bool IsUsers(const Folder& folder, const std::string& name,
                        const std::string& fingerprint) {
        return folder && folder.Has(name) &&
               Fingerprint(folder.Read(name, kFileLimit)) != fingerprint;
    }
};

/// The files of an application.
struct ApplicationFiles {
    ApplicationRecord record;
    std::string script;
    /// Empty if there is none to write.
    std::string icon;
};

/// Reads the command and the icon of a request.
ApplicationFiles FilesOf(const Request& request) {
    ApplicationFiles files{{request.name, request.version, ResolveCommand(request), {}, {}}, {}, {}};
    files.script = WrapperScript(request.name, files.record.command);
    files.record.scriptFingerprint = Fingerprint(files.script);
    if (request.icon.empty()) return files;
    files.icon = ReadIcon(request.icon);
    files.record.iconFingerprint = Fingerprint(files.icon);
    return files;
}

void Write(const Folder& contents, const ApplicationFiles& files, bool hasIcon) {
    contents.Make(kProgramsName).Write(files.record.name, files.script, kExecutable);
    if (!files.icon.empty()) contents.Make(kResourcesName).Write(kIconName, files.icon, kReadable);
    contents.Write(kListName, PropertyListText(files.record, hasIcon), kReadable);
}

void Create(const LockedApplications& locked, const Application& application,
            const ApplicationFiles& files) {
    const Folder& applications = locked.Applications();
    const std::string bundle = application.name + ".app";
    if (application.outer ? application.outer.Has(bundle) : applications.Has(application.name)) {
        throw Refusal{Quoted((application.outer ? application.outer : applications)
                                 .PathOf(application.outer ? bundle : application.name)) +
                      " is there already, and dunvey-register didn't create it. Choose another "
                      "name or move it away."};
    }
    Write(locked.Temporary().Make(bundle).Make("Contents"), files, !files.icon.empty());
    const Folder outer = applications.Make(application.name);
    try {
        locked.Temporary().Move(bundle, outer, bundle);
    } catch (const Refusal&) {
        applications.RemoveFolder(application.name);
        throw;
    }
}

/// Replaces the files of a registered application. At no moment is a new script there with an old
/// property list or the reverse, and a failure restores the old files.
void Replace(const LockedApplications& locked, const Application& application,
             ApplicationFiles files) {
    const Folder& old = application.contents;
    const Folder& temporary = locked.Temporary();
    const std::string& name = application.name;
    const bool hasNewIcon = !files.icon.empty();
    if (!hasNewIcon) files.record.iconFingerprint = application.record->iconFingerprint;
    Write(temporary, files, hasNewIcon || (application.resources.Has(kIconName)));
    const Folder oldPrograms = old.Make(kProgramsName);
    const Folder newPrograms = temporary.Make(kProgramsName);
    const Folder resources = hasNewIcon ? old.Make(kResourcesName) : Folder();
    const bool hadScript = oldPrograms.Move(name, temporary, "script");
    bool hadIcon = false;
    try {
        hadIcon = hasNewIcon && resources.Move(kIconName, temporary, "icon");
        if (hasNewIcon)
            temporary.Make(kResourcesName).Move(kIconName, resources, kIconName);
        temporary.Move(kListName, old, kListName);
    } catch (const Refusal&) {
        if (hadIcon) temporary.Move("icon", resources, kIconName);
        if (hadScript) temporary.Move("script", oldPrograms, name);
        throw;
    }
    newPrograms.Move(name, oldPrograms, name);
}

/// Refuses to replace what the user changed.
void CheckReplaceable(const Application& application, bool hasNewIcon) {
    const bool isScript = application.HasUsersScript();
    if (!isScript && !(hasNewIcon && application.HasUsersIcon())) return;
    throw Refusal{Quoted(isScript ? application.programs.PathOf(application.name)
                                  : application.resources.PathOf(kIconName)) +
                  " was changed and would be lost. Move it away, or add --force to replace it."};
}

}  // namespace

std::string Register(const Request& request) {
    const ApplicationFiles files = FilesOf(request);
    const LockedApplications locked;
    const Application application(locked.Applications(), request.name);
    if (!request.force) CheckVersionFits(request.name, request.version);
    if (!application.record) {
        Create(locked, application, files);
    } else {
        if (!request.force) CheckReplaceable(application, !files.icon.empty());
        Replace(locked, application, files);
    }
    return locked.Applications().PathOf(request.name) + "/" + request.name + ".app";
}

std::vector<Registered> RegisteredApplications(std::vector<std::string>& problems) {
    std::vector<Registered> all;
    const Ref<FolderItem> item = SpecialFolder::Applications();
    const std::string& path = item->NativePath();
    if (!item->Exists()) return all;
    if (!OpenFile(path, O_RDONLY | O_DIRECTORY)) Refuse(path, "read", errno);
    const Folder applications = Folder::At(path);
    for (int64_t i = 1; i <= item->Count(); ++i) {
        const Ref<FolderItem> entry = item->TrueItem(i);
        if (!entry) continue;
        try {
            const Application application(applications, entry->Name());
            if (!application.record) continue;
            std::vector<std::string> files = RequiredFiles(application.record->command);
            files.push_back(application.contents.PathOf(kProgramsName) + "/" + application.name);
            const auto missing = std::find_if(
                files.begin(), files.end(),
                [](const std::string& file) { return !FolderItem(file).Exists(); });
            all.push_back(
                {*application.record, missing == files.end() ? std::string() : *missing});
        } catch (const Refusal& refusal) {
            problems.push_back(refusal.text);
        }
    }
    std::stable_sort(all.begin(), all.end(), [](const Registered& left, const Registered& right) {
        return IsLowerVersion(left.record.version, right.record.version);
    });
    return all;
}

std::string Remove(const std::string& name) {
    const LockedApplications locked;
    const Folder& applications = locked.Applications();
    const Application application(applications, name);
    if (!application.record) {
        throw Refusal{Quoted(applications.PathOf(name)) +
                      (applications.Has(name)
                           ? " wasn't created by dunvey-register, so it stays."
                           : " isn't there. --list shows what is registered.")};
    }
    const bool keepsScript = application.HasUsersScript();
    const bool keepsIcon = application.HasUsersIcon();
    if (application.programs && !keepsScript) application.programs.RemoveFile(name);
    if (application.resources && !keepsIcon) application.resources.RemoveFile(kIconName);
    application.contents.RemoveFolder(kProgramsName);
    application.contents.RemoveFolder(kResourcesName);
    // Last: after a failure the application still counts as registered and can be removed again.
    application.contents.RemoveFile(kListName);
    application.bundle.RemoveFolder("Contents");
    if (!application.outer.RemoveFolder(name + ".app")) return application.bundle.Path();
    return applications.RemoveFolder(name) ? std::string() : application.outer.Path();
}

}  // namespace dunvey
