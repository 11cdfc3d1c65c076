#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/menus/menu_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The application object: its events, its menu bar and the program's version.
class Application {
 public:
    Application() = default;
    virtual ~Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// The first event that the event loop delivers.
    virtual void Event_Open() {}
    /// Fired once, when the program is about to end in an orderly way.
    virtual void Event_Close() {}
    /// Delivered for each document to be opened, after Event_Open.
    virtual void Event_OpenDocument(const Ref<FolderItem>& document) = 0;

    /// The extensions of the documents that it opens, in lower case; empty if it opens any file.
    virtual std::vector<std::string> DocumentExtensions() const { return {}; }

    /// The registered application object; raises NilObjectException if there is none.
    static Ref<Application> Current();
    /// Registers the application object; nil removes it.
    static void Register(Ref<Application> application);

    /// The application's menu bar; nil for none.
    const Ref<dunvey::MenuBar>& MenuBar() const { return menuBar_; }
    void SetMenuBar(Ref<dunvey::MenuBar> menuBar) { menuBar_ = std::move(menuBar); }

    /// Fires Event_Close; a second call does nothing.
    void Close();
    /// Whether Close has been called.
    bool IsClosing() const { return closing_; }

    /// The running executable, links resolved. Its parent's parent is the bundle's Contents folder.
    static Ref<FolderItem> ExecutableFile();

    /// The program's version, set at build: 1.2.3 is Major.Minor.Bug; NonRelease is the build
    /// number.
    static int64_t MajorVersion();
    static int64_t MinorVersion();
    static int64_t BugVersion();
    static int64_t NonReleaseVersion();
    /// The version as the user reads it, such as "1.2.3".
    static std::string LongVersion();

    /// Switches high-resolution drawing on or off for a desktop that is loaded later.
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
