#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/loop/user_action.h"
#include "platform/values/exceptions.h"
#include "platform/values/reference.h"

namespace dunvey {

class MessageDialog;
class NSImage;
class Window;

/// There is no screen to show anything on; the message says why and what to do.
DUNVEY_NAMED_EXCEPTION(DesktopUnavailableException);

/// Keeps a window or dialog on the screen; destroying it removes it from there.
class Shown {
 public:
    virtual ~Shown() = default;
    /// Brings it to the front.
    virtual void Raise() {}
    /// Minimizes a window until the user restores it.
    virtual void Minimize() {}
    /// Maximizes a window, or restores its former size.
    virtual void Zoom() {}
};

/// The one interface to the screen, the keyboard and the mouse. It is loaded at its first use.
class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Runs an event loop until LeaveLoop. It serves the EventLoop's documents and timers too, each
    /// through EventLoop::Enter. Calls nest.
    virtual void RunLoop() = 0;
    /// Makes the innermost RunLoop return soon. Without one it does nothing.
    virtual void LeaveLoop() = 0;
    /// Wakes a running loop after a document or a timer was added.
    virtual void Wake() = 0;
    /// Serves waiting events, of the user and of the EventLoop, and returns.
    virtual void Turn() = 0;
    /// Makes the program the active one.
    virtual void BringToFront() = 0;
    /// Shows the dialog, as a sheet of `parent` unless that is nullptr, and returns at once. The
    /// dialog must outlive the returned object.
    virtual std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) = 0;
    /// Shows the window, modal or not, and returns at once. The window must outlive the returned
    /// object.
    virtual std::unique_ptr<Shown> Show(Window& window, bool modal) = 0;

    /// Whether the Command key is held down while one of the windows has the focus; for desktops
    /// whose keyboard can't be read otherwise.
    virtual bool IsCommandKeyDown() const { return false; }

    /// The icon of the file or folder at an absolute path; never nil.
    virtual Ref<NSImage> IconForFile(const std::string& path) = 0;
    /// The icon of an extension, or of a four-letter code in single quotes; never nil.
    virtual Ref<NSImage> IconForFileType(const std::string& type) = 0;

    /// Compares two texts in the order of the user's language, digits by their value: negative,
    /// zero or positive; zero for equal texts only.
    virtual int64_t CompareTexts(const std::string& text1, const std::string& text2) = 0;

    using Loader = std::unique_ptr<Desktop> (*)();
    /// Sets the function that makes the desktop at its first use. It raises
    /// DesktopUnavailableException where there is no screen.
    static void SetLoader(Loader loader);
    /// Replaces the desktop; nullptr removes it.
    static void Install(std::unique_ptr<Desktop> desktop);
    /// The desktop, which is loaded if it isn't yet. Raises DesktopUnavailableException.
    static Desktop& Current();
    static bool IsLoaded();

 protected:
    static UserAction ByUser() { return {}; }
};

/// The function that a desktop plug-in exports as "DunveyMakeDesktop". The caller owns the result.
/// Raises DesktopUnavailableException where there is no screen.
using MakeDesktop = Desktop*();

}  // namespace dunvey
