#include "chooser/window1.h"

namespace dunvey {

Ref<MenuItem> Window1::FileMenu() const {
    return MenuItemNamed<MenuItem>("FileMenu");
}

Ref<CocoaMenu::CocoaMenuItemClose> Window1::FileClose() const {
    return MenuItemNamed<CocoaMenu::CocoaMenuItemClose>("FileClose");
}

Ref<ApplicationMenuItem> Window1::FileAbout() const {
    return MenuItemNamed<ApplicationMenuItem>("FileAbout");
}

Ref<ApplicationMenuItem> Window1::FileSeparator1() const {
    return MenuItemNamed<ApplicationMenuItem>("FileSeparator1");
}

Ref<QuitMenuItem> Window1::FileQuit() const {
    return MenuItemNamed<QuitMenuItem>("FileQuit");
}

Ref<MenuItem> Window1::EditMenu() const {
    return MenuItemNamed<MenuItem>("EditMenu");
}

Ref<CocoaMenu::CocoaMenuItemUndo> Window1::EditUndo() const {
    return MenuItemNamed<CocoaMenu::CocoaMenuItemUndo>("EditUndo");
}

Ref<CocoaMenu::CocoaMenuItemRedo> Window1::EditRedo() const {
    return MenuItemNamed<CocoaMenu::CocoaMenuItemRedo>("EditRedo");
}

Ref<MenuItem> Window1::UntitledSeparator() const {
    return MenuItemNamed<MenuItem>("UntitledSeparator");
}

Ref<MenuItem> Window1::EditCut() const {
    return MenuItemNamed<MenuItem>("EditCut");
}

Ref<MenuItem> Window1::EditCopy() const {
    return MenuItemNamed<MenuItem>("EditCopy");
}

Ref<MenuItem> Window1::EditPaste() const {
    return MenuItemNamed<MenuItem>("EditPaste");
}

Ref<MenuItem> Window1::EditClear() const {
    return MenuItemNamed<MenuItem>("EditClear");
}

Ref<CocoaMenu::CocoaMenuItemSelectAll> Window1::EditSelectAll() const {
    return MenuItemNamed<CocoaMenu::CocoaMenuItemSelectAll>("EditSelectAll");
}

Ref<MenuItem> Window1::WindowMenu0() const {
    return MenuItemNamed<MenuItem>("WindowMenu0");
}

Ref<MenuItem> Window1::UntitledSeparator2() const {
    return MenuItemNamed<MenuItem>("UntitledSeparator2");
}

Ref<MenuItem> Window1::UntitledSeparator3() const {
    return MenuItemNamed<MenuItem>("UntitledSeparator3");
}

Ref<CocoaMenu::MenuItemMinimize> Window1::WindowMinimize() const {
    return MenuItemNamed<CocoaMenu::MenuItemMinimize>("WindowMinimize");
}

Ref<CocoaMenu::MenuItemZoom> Window1::WindowZoom() const {
    return MenuItemNamed<CocoaMenu::MenuItemZoom>("WindowZoom");
}

Ref<MenuItem> Window1::WindowSeparator1() const {
    return MenuItemNamed<MenuItem>("WindowSeparator1");
}

Ref<CocoaMenu::MenuItemBringAllToFront> Window1::WindowBringAlltoFront() const {
    return MenuItemNamed<CocoaMenu::MenuItemBringAllToFront>("WindowBringAlltoFront");
}

Ref<MenuItem> Window1::UntitledSeparator0() const {
    return MenuItemNamed<MenuItem>("UntitledSeparator0");
}

Ref<MenuItem> Window1::UntitledSeparator1() const {
    return MenuItemNamed<MenuItem>("UntitledSeparator1");
}

Ref<MenuItem> Window1::HelpMenu() const {
    return MenuItemNamed<MenuItem>("HelpMenu");
}

}  // namespace dunvey
