#include <string>

#include "app/app.h"
#include "app/run_rescue.h"
#include "platform/loop/event_loop.h"
#include "platform/values/array.h"
#include "version/launch_command.h"

namespace dunvey {
namespace {

/// The documents that go out in one command: a run of equal version keys.
class Group {
 public:
    void Open(const FileClass& document) {
        app_ = document.WillUseApp;
        version_ = document.WillUseVer;
        paths_.clear();
        Add(document);
    }
    void Add(const FileClass& document) { paths_ += document.File->ShellPath() + " "; }
    bool Takes(const FileClass& document) const { return document.WillUseVer == version_; }
    void Launch() const { InDesign::OpenWith(app_, paths_); }

 private:
    std::string paths_;
    Ref<FolderItem> app_;
    std::string version_;
};

void LaunchAlone(const FileClass& document) {
    InDesign::OpenWith(document.WillUseApp, document.File->ShellPath());
}

void RemoveWithdrawn(std::vector<Ref<FileClass>>& files) {
    std::erase_if(files, [](const Ref<FileClass>& document) { return !document->WillOpen; });
}

}  // namespace

void App::OpenFile() {
    if (UpperBound(Files) == -1) return;
    RemoveWithdrawn(Files);
    OpenFrom(0);
}

void App::OpenFrom(int64_t first) {
    const int64_t last = UpperBound(Files);
    int64_t unsent = first;
    Group group;
    for (int64_t position = first; position <= last; ++position) {
        const FileClass& document = *At(Files, position);
        if (position == first && position == last) {
            LaunchAlone(document);
        } else if (position == first) {
            group.Open(document);
        } else if (group.Takes(document)) {
            group.Add(document);
            if (position == last) group.Launch();
        } else {
            group.Launch();
            unsent = position;
            if (position == last) {
                LaunchAlone(document);
            } else {
                group.Open(document);
            }
        }
        if (position == last) unsent = last + 1;
        const RunAtRisk run([unsent] { App::Instance()->OpenFrom(unsent); });
        RuntimeBackgroundTask();
    }
}

}  // namespace dunvey
