#pragma once

#include "platform/menus/menu_item.h"

namespace dunvey {

/// The menu bar of the application and the chooser. The captions are in the user's language at the
/// time of construction.
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
