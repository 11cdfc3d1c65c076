#include "inspect/inspector.h"

#include <unistd.h>

#include "platform/text/text.h"
#include "version/application_match.h"
#include "version/application_version.h"
#include "version/booting_apps.h"
#include "version/installed_apps.h"
#include "version/version_name.h"

namespace dunvey {

Inspector::Inspector(bool readsProcesses, std::function<void(size_t)> progress)
    : readsProcesses_(readsProcesses), progress_(std::move(progress)) {
    InDesign::GetInstalledApps();
}

void Inspector::Examine(const std::string& path, bool recursive) {
    if (const FolderItem item(path); recursive && item.Directory()) return AddFolder(item);
    Add(path);
}

void Inspector::AddFolder(const FolderItem& folder) {
    if (access(folder.NativePath().c_str(), R_OK | X_OK) != 0) {
        findings_.push_back({folder.NativePath(), Refusal::kMissing, {}, nullptr});
    }
    const int64_t count = folder.Count();
    for (int64_t i = 1; i <= count; ++i) {
        const Ref<FolderItem> item = folder.TrueItem(i);
        if (!item) continue;
        if (item->Directory()) {
            AddFolder(*item);
        } else if (IsExtensionIn(InDesign::DocumentExtensions(), FileExtension(item->Name()))) {
            Add(item->NativePath());
        }
    }
}

void Inspector::Add(const std::string& path) {
    Finding finding;
    finding.path = path;
    finding.refusal = RefusalOf(path, InDesign::DocumentExtensions());
    if (finding.refusal == Refusal::kNone) {
        const auto item = New<FolderItem>(path);
        finding.header = InDesign::ReadHeader(item, FileExtension(item->Name()));
        finding.answer = &AnswerFor(InDesign::VersionText(finding.header.version));
    }
    findings_.push_back(std::move(finding));
    progress_(findings_.size());
}

const VersionAnswer& Inspector::AnswerFor(const std::string& version) {
    const auto known = answers_.find(version);
    if (known != answers_.end()) return known->second;
    if (answers_.empty() && readsProcesses_) InDesign::GetBootingAppNames();
    FileClass record;
    record.Ver = version;
    InDesign::MatchApplication(record);
    VersionAnswer answer;
    answer.product = InDesign::GetAppName(version);
    if (record.App) {
        answer.application = record.App->NativePath();
        answer.applicationVersion = InDesign::AppVersion(record.App);
    }
    answer.decision = DecideToOpen(record, InDesign::BootingAppNames);
    return answers_[version] = std::move(answer);
}

}  // namespace dunvey
