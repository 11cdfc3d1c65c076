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

/// What a desktop holds while it shows something; letting it go takes it off the screen.
class Shown {
 public:
    virtual ~Shown() = default;
    /// Brings it up in front of the others.
    virtual void Raise() {}
    /// Puts a window away until the user takes it back.
    virtual void Minimize() {}
    /// Gives a window the size of the screen, or the one before.
    virtual void Zoom() {}
};

/// The one seam to the screen, the keyboard and the mouse. It is loaded at its first use; a run in
/// which nothing is asked does without.
class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Runs the toolkit's loop until LeaveLoop; serves the event loop's documents and timers on the
    /// way, each through EventLoop::Enter. Calls nest.
    virtual void RunLoop() = 0;
    /// Ends the innermost RunLoop soon. Without one it does nothing.
    virtual void LeaveLoop() = 0;
    /// Tells a running loop that there is something new to serve: a document or a timer.
    virtual void Wake() = 0;
    /// Gives the user and the event loop a turn in the middle of some work, and returns.
    virtual void Turn() = 0;
    /// Makes the program the one in front.
    virtual void BringToFront() = 0;
    /// Shows the dialog, as a sheet of the window if that isn't nullptr, and returns at once. The
    /// dialog lives longer than what is returned.
    virtual std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) = 0;

    /// Shows the window, holding the rest of the program up or not, and returns at once. The window
    /// lives longer than what is returned.
    virtual std::unique_ptr<Shown> Show(Window& window, bool modal) = 0;

    /// The image that stands for the file or folder at an absolute path, which exists.
    virtual Ref<NSImage> IconForFile(const std::string& path) = 0;
    /// The image of a file type: an extension, or a four-letter code in single quotes.
    virtual Ref<NSImage> IconForFileType(const std::string& type) = 0;

    /// Compares two texts as the user's language orders names, digits by their value: negative,
    /// zero or positive; zero for equal texts alone.
    virtual int64_t CompareTexts(const std::string& text1, const std::string& text2) = 0;

    using Loader = std::unique_ptr<Desktop> (*)();
    /// Names what makes the desktop at its first use, and what begins to prepare that, if anything.
    /// The loader raises DesktopUnavailableException where there is no screen.
    static void SetLoader(Loader loader, void (*prepare)() = nullptr);
    /// Tells that a desktop will be needed after some other work.
    static void Prepare();
    /// Puts a desktop in place, nullptr takes it away.
    static void Install(std::unique_ptr<Desktop> desktop);
    /// The desktop, loaded now if need be. Raises DesktopUnavailableException.
    static Desktop& Current();
    static bool IsLoaded();
    /// Leaves the desktop as it is, for good, without a further word to it: its screen has gone.
    static void Abandon();

 protected:
    static UserAction ByUser() { return {}; }
};

}  // namespace dunvey
