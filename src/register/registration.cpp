#include "register/registration.h"

#include <optional>

#include "platform/bundles/property_list.h"
#include "platform/files/special_folder.h"
#include "platform/processes/error_line.h"
#include "platform/text/text.h"
#include "register/folder.h"
#include "register/icon_file.h"
#include "register/version_check.h"
#include "version/stable_sort_by.h"

namespace dunvey {
namespace {

constexpr const char* kListName = "Info.plist";
constexpr const char* kProgramsName = "MacOS";
constexpr const char* kResourcesName = "Resources";
constexpr mode_t kReadable = 0644;
constexpr mode_t kExecutable = 0755;
/// Of a script or an icon in bytes; larger ones weren't written by dunvey-register.
constexpr size_t kFileLimit = 17 * 1024 * 1024;

/// An application's folders; no folder for one that is missing or a link.
struct Application {
    Application(const Folder& applications, std::string applicationName)
        : name(std::move(applicationName)),
          outer(applications.Child(name)),
          bundle(outer.Child(name + ".app")),
          contents(bundle.Child("Contents")),
          programs(contents.Child(kProgramsName)),
          resources(contents.Child(kResourcesName)) {
        if (contents) record = ReadRecord(name, contents.Read(kListName, kPropertyListLimit + 1));
    }

    std::string name;
    Folder outer;
    Folder bundle;
    Folder contents;
    Folder programs;
    Folder resources;
    /// nullopt if it isn't registered.
    std::optional<ApplicationRecord> record;
};

/// Whether the file exists and isn't the one that dunvey-register wrote.
bool Differs(const Folder& folder, const std::string& name, const std::string& fingerprint) {
    return folder && folder.Has(name) && Fingerprint(folder.Read(name, kFileLimit)) != fingerprint;
}

/// The files of an application.
struct ApplicationFiles {
    explicit ApplicationFiles(const Request& request)
        : record{request.name, request.version, ResolveCommand(request), {}, {}},
          script(ScriptText(request.name, record.command)),
          icon(request.icon.empty() ? std::string() : ReadIcon(request.icon)) {
        record.scriptFingerprint = Fingerprint(script);
        if (!icon.empty()) record.iconFingerprint = Fingerprint(icon);
    }
    void Write(const Folder& contents, bool hasIcon) const {
        contents.Make(kProgramsName).Write(record.name, script, kExecutable);
        if (!icon.empty()) contents.Make(kResourcesName).Write(kIconName, icon, kReadable);
        contents.Write(kListName, PropertyListText(record, hasIcon), kReadable);
    }

    ApplicationRecord record;
    std::string script;
    /// Empty if there is none to write.
    std::string icon;
};

void Create(const LockedApplications& locked, const Application& application,
            const ApplicationFiles& files) {
    const Folder& applications = locked.Applications();
    const std::string& name = application.name;
    const std::string bundle = name + ".app";
    if (application.outer ? application.outer.Has(bundle) : applications.Has(name)) {
        throw Refusal{Quoted(application.outer ? application.outer.PathOf(bundle)
                                               : applications.PathOf(name)) +
                      " already exists, and dunvey-register didn't create it. Choose another "
                      "name or move it away."};
    }
    files.Write(locked.Temporary().Make(bundle).Make("Contents"), !files.icon.empty());
    locked.Temporary().Move(bundle, applications.Make(name), bundle);
}

/// Replaces the files of a registered application. A new script never exists beside an old property
/// list or the reverse. A failure restores the old script.
void Replace(const LockedApplications& locked, const Application& application,
             ApplicationFiles files) {
    const Folder& temporary = locked.Temporary();
    const Folder& contents = application.contents;
    const std::string& name = application.name;
    const bool hasNewIcon = !files.icon.empty();
    if (!hasNewIcon) files.record.iconFingerprint = application.record->iconFingerprint;
    files.Write(temporary,
                hasNewIcon || (application.resources && application.resources.Has(kIconName)));
    const Folder programs = contents.Make(kProgramsName);
    const Folder resources = hasNewIcon ? contents.Make(kResourcesName) : Folder();
    const bool hadScript = programs.Move(name, temporary, "old");
    try {
        temporary.Move(kListName, contents, kListName);
    } catch (const Refusal&) {
        if (hadScript) temporary.Move("old", programs, name);
        throw;
    }
    temporary.Child(kProgramsName).Move(name, programs, name);
    if (hasNewIcon) temporary.Child(kResourcesName).Move(kIconName, resources, kIconName);
}

void RefuseChanged(const Application& application, bool hasNewIcon) {
    const ApplicationRecord& record = *application.record;
    const bool isChanged =
        Differs(application.programs, record.name, record.scriptFingerprint) ||
        (hasNewIcon && Differs(application.resources, kIconName, record.iconFingerprint));
    if (!isChanged) return;
    throw Refusal{"the script or the icon in " + Quoted(application.contents.Path()) +
                  " was changed and would be lost. Move it away, or add --force to replace it."};
}

/// The first missing file that an application needs to start; empty if there is none.
std::string MissingFile(const Application& application) {
    std::vector<std::string> files = RequiredFiles(application.record->command);
    files.push_back(application.contents.PathOf(kProgramsName) + "/" + application.name);
    for (const std::string& file : files) {
        if (!FolderItem(file).Exists()) return file;
    }
    return {};
}

}  // namespace

Registered Register(const Request& request) {
    const ApplicationFiles files(request);
    const LockedApplications locked;
    const Application application(locked.Applications(), request.name);
    if (!request.force) CheckVersionFits(request.name, request.version);
    if (!application.record) {
        Create(locked, application, files);
    } else {
        if (!request.force) RefuseChanged(application, !files.icon.empty());
        Replace(locked, application, files);
    }
    return {files.record, {}};
}

std::vector<Registered> RegisteredApplications(std::vector<std::string>& problems) {
    std::vector<Registered> all;
    const Ref<FolderItem> item = SpecialFolder::Applications();
    const std::string& path = item->NativePath();
    if (!item->Exists()) return all;
    const Folder applications = Folder::At(path);
    applications.CheckReadable();
    for (int64_t i = 1; i <= item->Count(); ++i) {
        const Ref<FolderItem> entry = item->TrueItem(i);
        if (!entry) continue;
        try {
            const Application application(applications, entry->Name());
            if (application.record) all.push_back({*application.record, MissingFile(application)});
        } catch (const Refusal& refusal) {
            problems.push_back(refusal.text);
        }
    }
    StableSortBy(all, [](const Registered& each) { return Val(each.record.version); });
    return all;
}

std::string Remove(const std::string& name) {
    const LockedApplications locked;
    const Folder& applications = locked.Applications();
    const Application application(applications, name);
    if (!application.record) {
        throw Refusal{Quoted(applications.PathOf(name)) +
                      (applications.Has(name) ? " wasn't created by dunvey-register, so it stays."
                                              : " isn't there. --list shows what is registered.")};
    }
    const ApplicationRecord& record = *application.record;
    if (application.programs && !Differs(application.programs, name, record.scriptFingerprint))
        application.programs.RemoveFile(name);
    if (application.resources && !Differs(application.resources, kIconName, record.iconFingerprint))
        application.resources.RemoveFile(kIconName);
    application.contents.RemoveFolder(kProgramsName);
    application.contents.RemoveFolder(kResourcesName);
    // Last: after a failure the application still counts as registered and can be removed again.
    application.contents.RemoveFile(kListName);
    application.bundle.RemoveFolder("Contents");
    if (!application.outer.RemoveFolder(name + ".app")) return application.bundle.Path();
    return applications.RemoveFolder(name) ? std::string() : application.outer.Path();
}

}  // namespace dunvey
