#include "app/app.h"

namespace dunvey {

void App::Event_OpenDocument(const Ref<FolderItem>& document) {
    t->SetMode(Timer::kOff);
    if (!CanAccepted) return;
    const Ref<FileClass> record = InDesign::MakeNewFileClass(document);
    if (record) Files.push_back(record);
    t->SetMode(Timer::kOnce);
}

// The About window isn't there yet.
bool App::_FileAbout_Action() {
    return false;
}

// The chooser isn't there yet: what it would ask about is left as it was judged.
void App::createNewWindow(int64_t, bool, bool, bool, bool) {}

void App::terminate() {
    NSApplication::terminate();
}

}  // namespace dunvey
