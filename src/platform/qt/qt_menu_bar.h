#pragma once

#include <QMenuBar>
#include <vector>

#include "platform/menus/menu_layout.h"
#include "platform/qt/qt_controls.h"

namespace dunvey {

/// A menu bar in a window. The shortcuts work at once; a menu gets its items when it is first
/// opened.
class QtMenuBar final : public QMenuBar {
 public:
    /// Where isShown is false, the window has only the shortcuts of the menu bar.
    /// Without a window, only macOS shows it.
    QtMenuBar(Ref<dunvey::MenuBar> model, QWidget* window, RunInput run, bool isShown);

    /// The height taken from the window: 0 for a bar that is hidden or at the top of the screen.
    int HeightInWindow() const;

 private:
    struct Command {
        Ref<MenuItem> item;
        QAction* action;
    };

    void AddMenu(const MenuOnScreen& menu);
    QAction* ActionOf(const Ref<MenuItem>& item);
    void AddOpeningKey();
    void Validate();
    void EnableAll();

    Ref<dunvey::MenuBar> model_;
    RunInput run_;
    bool isShown_;
    std::vector<Command> commands_;
};

}  // namespace dunvey
