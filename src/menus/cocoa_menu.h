#pragma once

#include <cstdint>
#include <string>

#include "platform/menus/menu_item.h"
#include "platform/menus/native_menu.h"

namespace dunvey::CocoaMenu {

/// A menu item that doesn't act by itself but sends a selector into the responder chain, so that
/// whatever has the focus answers it. Whoever would answer also says whether it is enabled.
class CocoaMenuItem : public MenuItem {
 public:
    using MenuItem::MenuItem;

    /// Lets the subclass act first, then sends the action. Returns whether somebody answered it.
    bool Event_Action() final;
    void Event_EnableMenu() final;

    /// What it sends.
    Selector ActionSelector();
    /// The fixed target, nullptr for the responder chain.
    Responder* Target(const Ref<NSMenuItem>& item);

    /// The native side of the menu or menu bar, found by the titles on the way down from the
    /// application's menu bar; nil if it isn't found.
    static Ref<NSMenu> GetNSMenu(const Ref<MenuItem>& item);
    static Ref<NSMenuItem> GetNSMenuItem(const Ref<MenuItem>& item);
    /// What the item is a child of, in the tree of the application's menu bar; nil if it isn't in
    /// there.
    static Ref<MenuItem> GetParentOf(const Ref<MenuItem>& item);
    static Ref<NSMenu> MainMenu();
    static NSApplication::SharedApplication* NSApp();

    // The events of the subclasses.
    /// The subclass may act first; True stops the sending. The default calls the joined handler.
    virtual bool Event_BeforeAction() { return Action && Action(); }
    /// The selector's name.
    virtual std::string Event_ActionSelectorName() { return {}; }
    /// The tag of the native item.
    virtual int64_t Event_CocoaTag() { return 0; }
    /// Enabled has been set; it may be changed. `target` is who would answer, nullptr for nobody.
    virtual void Event_EnableMenu(Responder* /*target*/) {}
    /// A fixed target, nullptr for the responder chain.
    virtual Responder* Event_Target(const Ref<NSMenuItem>& /*item*/) { return nullptr; }
};

class CocoaMenuItemClose : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "performClose:"; }
};

class CocoaMenuItemRedo : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "redo:"; }
    using CocoaMenuItem::Event_EnableMenu;
    /// Who answers must also have something to redo.
    void Event_EnableMenu(Responder* target) override;
};

class CocoaMenuItemSelectAll : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "selectAll:"; }
};

class CocoaMenuItemUndo : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "undo:"; }
};

class MenuItemBringAllToFront : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "arrangeInFront:"; }
};

class MenuItemMinimize : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "performMiniaturize:"; }
};

class MenuItemZoom : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "performZoom:"; }
};

}  // namespace dunvey::CocoaMenu
