#pragma once

#include "platform/menus/menu_item.h"

namespace dunvey {

/// The program's one menu bar: a fixed tree, with the captions in the language of the user at the
/// moment it is built. The application and the chooser's window share it.
class MainMenuBar : public MenuBar {
 public:
    MainMenuBar();

    /// The one instance, made at the first call.
    static const Ref<MainMenuBar>& Instance();

    // Each builds one menu of the bar, in their order: File, Edit, Window, Help.
    virtual void Untitled0();
    virtual void Untitled1();
    virtual void Untitled2();
    virtual void Untitled3();
};

}  // namespace dunvey
