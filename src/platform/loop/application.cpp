#include "platform/loop/application.h"

#include "platform/bundles/executable_path.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"

namespace dunvey {
namespace {

Ref<Application> registered;
bool supportsHighResolution = false;

}  // namespace

Ref<Application> Application::Current() {
    if (!registered) RaiseNilObject();
    return registered;
}

void Application::Register(Ref<Application> application) {
    registered = std::move(application);
}

void Application::Close() {
    if (closing_) return;
    closing_ = true;
    Event_Close();
}

Ref<FolderItem> Application::ExecutableFile() {
    return New<FolderItem>(ExecutablePath());
}

int64_t Application::MajorVersion() {
    return DUNVEY_VERSION_MAJOR;
}

int64_t Application::MinorVersion() {
    return DUNVEY_VERSION_MINOR;
}

int64_t Application::BugVersion() {
    return DUNVEY_VERSION_PATCH;
}

int64_t Application::NonReleaseVersion() {
    return DUNVEY_BUILD_NUMBER;
}

std::string Application::LongVersion() {
    return std::to_string(MajorVersion()) + "." + std::to_string(MinorVersion()) + "." +
           std::to_string(BugVersion());
}

void Application::_SetSupportsHiDPI(bool supported) {
    supportsHighResolution = supported;
}

bool Application::SupportsHiDPI() {
    return supportsHighResolution;
}

namespace NSApplication {

void terminate() {
    if (!Application::Current()->IsClosing()) Quit(0);
}

void activateIgnoringOtherApps(bool flag) {
    if (flag) Desktop::Current().BringToFront();
}

}  // namespace NSApplication
}  // namespace dunvey
