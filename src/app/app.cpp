#include "app/app.h"

namespace dunvey {

void App::Event_OpenDocument(const Ref<FolderItem>& document) {
    t->SetMode(Timer::kOff);
    if (!CanAccepted) return;
    const Ref<FileClass> record = InDesign::MakeNewFileClass(document);
    if (record) Files.push_back(record);
    t->SetMode(Timer::kOnce);
}

bool App::_FileAbout_Action() {
    return false;
}

void App::createNewWindow(int64_t, bool, bool, bool, bool) {}

void App::terminate() {
    NSApplication::terminate();
}

}  // namespace dunvey
