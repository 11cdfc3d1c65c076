#include "app/process_start.h"

#include "app/app.h"
#include "app/exception_report.h"
#include "icons/file_types1.h"
#include "menus/main_menu_bar.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/launch_documents.h"

namespace dunvey {
namespace {

/// The platform's own initialisation: queues the documents of the launch and calls back.
void InitializeFramework(void (*initialized)()) {
    PostLaunchDocuments(EventLoop::Current());
    initialized();
}

/// Runs the application; returns its exit code.
int RunApplication() {
    try {
        return EventLoop::Current().Run(*Application::Current());
    } catch (const DesktopUnavailableException&) {
        if (!IsNothingToOpen()) throw;
        // Each argument was refused on standard error. Without a screen nothing is left to do.
        Application::Current()->Close();
        return 0;
    }
}

/// Frees the objects before the desktop that shows them.
void FinalizeModules() {
    Application::Register(nullptr);
    Desktop::Install(nullptr);
}

}  // namespace

void _InitFileTypes() {
    FileTypes1::_Initialize();
}

void _NewAppInstance() {
    const Ref<App> app = New<App>();
    app->SetMenuBar(MainMenuBar::Instance());
    Application::Register(app);
}

void _ApplicationAddMenuHandlers() {
    FileAbout()->Action = [] { return App::Instance()->_FileAbout_Action(); };
}

void _EarlyStartup() {
    Application::_SetSupportsHiDPI(true);
    _InitFileTypes();
    _NewAppInstance();
    _ApplicationAddMenuHandlers();
}

void _LateStartup() {}

int _Main() {
    int exitCode = 1;
    try {
        _EarlyStartup();
        InitializeFramework(&_LateStartup);
        exitCode = RunApplication();
    } catch (...) {
        ReportException(std::current_exception());
    }
    FinalizeModules();
    return exitCode;
}

}  // namespace dunvey
