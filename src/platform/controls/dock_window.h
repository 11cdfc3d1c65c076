#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/label.h"
#include "platform/controls/push_button.h"
#include "platform/controls/window.h"

namespace dunvey {

/// The documents among the words, each a path or a `file:` URI of this machine, as absolute paths:
/// files with one of the extensions in any letter case. Without extensions every file is one.
std::vector<std::string> DocumentsAmong(const std::vector<std::string>& words,
                                        const std::vector<std::string>& extensions);

/// What stands on the screen while the program waits for documents, where the system has no place
/// of its own to drop them on. It needs the registered application. To close it ends the program.
class DockWindow final : public Window {
 public:
    DockWindow();

    /// Lets the user choose files, which come back through Take; the desktop sets it.
    std::function<void()> Choose;

    /// The user drags files over it. False if there is no document among them, which it then says.
    bool Drag(UserAction, const std::vector<std::string>& words);
    /// The user drops or has chosen files: the documents among them are handed to the application
    /// in one go and the window goes. Without one it stays and says so.
    void Take(UserAction key, const std::vector<std::string>& words);

    /// Closes it; the program goes on.
    void Withdraw();

    void Event_Close() override;

 private:
    void PaintFrame(Graphics& graphics) const;
    void PaintIcon(Graphics& graphics) const;

    Ref<Canvas> frame_ = New<Canvas>();
    Ref<Canvas> icon_ = New<Canvas>();
    Ref<Label> line_ = New<Label>();
    Ref<PushButton> choose_ = New<PushButton>();
    bool endsProgram_ = true;
};

}  // namespace dunvey
