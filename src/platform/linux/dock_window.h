#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/label.h"
#include "platform/controls/push_button.h"
#include "platform/controls/window.h"

namespace dunvey {

/// The window shown while the program waits for documents: a place to drop them and a button to
/// choose them. Needs the registered application. Closing it ends the program.
class DockWindow final : public Window {
 public:
    DockWindow();

    /// Lets the user choose files and passes them to Take. The desktop sets it.
    std::function<void()> Choose;

    /// The user drags files, named by path or URI, over the window. Returns whether there is a
    /// document among them; if not, the window says so.
    bool Drag(UserAction, const std::vector<std::string>& files);
    /// The user drops or chooses files: posts the documents among them to the event loop and closes
    /// the window. Without a document the window stays and says so.
    void Take(UserAction key, const std::vector<std::string>& files);

    /// Closes the window without ending the program.
    void Withdraw();

    void Event_Close() override;

 private:
    void PaintFrame(Graphics& graphics) const;
    void PaintIcon(Graphics& graphics) const;

    Ref<Canvas> frame_;
    Ref<Canvas> icon_;
    Ref<Label> line_;
    Ref<PushButton> choose_;
    bool endsProgram_ = true;
};

}  // namespace dunvey
