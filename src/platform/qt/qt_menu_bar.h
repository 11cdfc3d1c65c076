#pragma once

#include <QMenuBar>
#include <vector>

#include "platform/menus/menu_layout.h"
#include "platform/qt/qt_controls.h"

namespace dunvey {

/// A menu bar on the screen. Its shortcuts work from the start; what stands in a menu is put there
/// when the menu is first opened.
class QtMenuBar final : public QMenuBar {
 public:
    QtMenuBar(Ref<dunvey::MenuBar> model, QWidget* window, UserDoor door);

    /// How much of the window it takes: nothing where the system has one bar for all.
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
    UserDoor door_;
    std::vector<Command> commands_;
};

}  // namespace dunvey
