#pragma once

#include <cstdint>
#include <string>

#include "platform/menus/menu_item.h"
#include "platform/menus/native_menu.h"

namespace dunvey::CocoaMenu {

/// A menu item that sends a selector to the responder chain. The responder that takes it carries
/// out the command and says whether the item is enabled.
class CocoaMenuItem : public MenuItem {
 public:
    using MenuItem::MenuItem;

    /// Calls Event_BeforeAction, then sends the action. Returns whether a responder took it.
    bool Event_Action() final;
    void Event_EnableMenu() final;

    /// The selector that it sends.
    Selector ActionSelector();
    /// The fixed target, nullptr for the responder chain.
    Responder* Target(const Ref<NSMenuItem>& item);

    /// The native menu of a menu or menu bar, found by its path of titles in the application's menu
    /// bar; nil if it isn't found.
    static Ref<NSMenu> GetNSMenu(const Ref<MenuItem>& item);
    static Ref<NSMenuItem> GetNSMenuItem(const Ref<MenuItem>& item);
    /// The item's parent in the application's menu bar; nil if it isn't in there.
    static Ref<MenuItem> GetParentOf(const Ref<MenuItem>& item);
    static Ref<NSMenu> MainMenu();
    static NSApplication::SharedApplication* NSApp();

    // The events of the subclasses.
    /// Called before the action is sent; True prevents that. The default calls the handler.
    virtual bool Event_BeforeAction() { return Action && Action(); }
    /// The selector's name.
    virtual std::string Event_ActionSelectorName() { return {}; }
    /// The tag of the native item.
    virtual int64_t Event_CocoaTag() { return 0; }
    /// Called after Enabled was set; may change it. `target` is the responder, nullptr for none.
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
    /// Enabled if the responder's undo manager can redo.
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
