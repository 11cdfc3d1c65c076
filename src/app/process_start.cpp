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

/// The platform's own initialisation, which brings the documents of the launch and calls back once
/// it is done.
void InitializeFramework(void (*initialized)()) {
    PostLaunchDocuments(EventLoop::Current());
    initialized();
}

/// Lets the objects go in the order in which they stand on each other.
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
        exitCode = EventLoop::Current().Run(*Application::Current());
    } catch (...) {
        ReportException(std::current_exception());
    }
    FinalizeModules();
    return exitCode;
}

}  // namespace dunvey
