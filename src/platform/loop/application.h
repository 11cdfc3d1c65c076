#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/menus/menu_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The application object: its events, and what it knows of the program.
class Application {
 public:
    Application() = default;
    virtual ~Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// Delivered first by the event loop.
    virtual void Event_Open() {}
    /// Fired once, when the program is about to end in an orderly way.
    virtual void Event_Close() {}
    /// Delivered for each document that is handed to the application, after Event_Open.
    virtual void Event_OpenDocument(const Ref<FolderItem>& document) = 0;

    /// The extensions of the documents that it takes, in small letters; none if it takes any file.
    virtual std::vector<std::string> DocumentExtensions() const { return {}; }

    /// The registered application object; raises NilObjectException before there is one.
    static Ref<Application> Current();
    /// Registers the application object; nil takes it away.
    static void Register(Ref<Application> application);

    /// The application's menu bar; nil for none.
    const Ref<dunvey::MenuBar>& MenuBar() const { return menuBar_; }
    void SetMenuBar(Ref<dunvey::MenuBar> menuBar) { menuBar_ = std::move(menuBar); }

    /// Fires Event_Close, the first time it is called.
    void Close();
    /// Whether Close has been called.
    bool IsClosing() const { return closing_; }

    /// The running executable, links resolved. Two parents up is the bundle's Contents folder.
    static Ref<FolderItem> ExecutableFile();

    /// The program's own version numbers, set at build: 1.2.3 with the build number beside it.
    static int64_t MajorVersion();
    static int64_t MinorVersion();
    static int64_t BugVersion();
    static int64_t NonReleaseVersion();
    /// The version as the user reads it, such as "1.2.3".
    static std::string LongVersion();

    /// Switches high-resolution drawing on or off. It holds for a desktop loaded later.
    static void _SetSupportsHiDPI(bool supported);
    static bool SupportsHiDPI();

 private:
    bool closing_ = false;
    Ref<dunvey::MenuBar> menuBar_;
};

/// The operating system's application object.
namespace NSApplication {

/// Ends the application: fires Event_Close and unwinds like Quit with 0. While the application is
/// closing it does nothing.
void terminate();

/// Makes the application the frontmost one.
void activateIgnoringOtherApps(bool flag);

}  // namespace NSApplication
}  // namespace dunvey
