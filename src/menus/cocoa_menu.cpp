#include "menus/cocoa_menu.h"

#include <vector>

#include "platform/loop/application.h"
#include "platform/menus/menu_caption.h"

namespace dunvey::CocoaMenu {
namespace {

Ref<MenuItem> ApplicationMenuBar() {
    return Application::Current()->MenuBar();
}

/// The item of the native menu with the title of `item`; nil without a menu.
Ref<NSMenuItem> ItemWithTitleOf(const Ref<MenuItem>& item, const Ref<NSMenu>& menu) {
    return menu ? menu->itemWithTitle(MenuCaption(item->Text).title) : nullptr;
}

bool Responds(const Responder& responder, const char* question) {
    return responder.respondsToSelector(NSSelectorFromString(question));
}

/// Whether the responder enables the item; true if it doesn't validate items.
bool IsValid(Responder& target, const Ref<NSMenuItem>& item) {
    const bool knowsMenuItems = Responds(target, "validateMenuItem:");
    const bool knowsInterfaceItems = Responds(target, "validateUserInterfaceItem:");
    if (!knowsMenuItems && !knowsInterfaceItems) return true;
    // Both are called, whatever the first one returns.
    const bool asMenuItem = knowsMenuItems && target.validateMenuItem(item);
    const bool asInterfaceItem = knowsInterfaceItems && target.validateUserInterfaceItem(item);
    return asMenuItem || asInterfaceItem;
}

}  // namespace

Selector CocoaMenuItem::ActionSelector() {
    return NSSelectorFromString(Event_ActionSelectorName());
}

Responder* CocoaMenuItem::Target(const Ref<NSMenuItem>& item) {
    return Event_Target(item);
}

bool CocoaMenuItem::Event_Action() {
    const Ref<NSMenuItem> item = GetNSMenuItem(Self());
    if (item) item->setTag(Event_CocoaTag());
    if (Event_BeforeAction()) return false;
    return NSApp()->sendAction(ActionSelector(), Target(item), item);
}

void CocoaMenuItem::Event_EnableMenu() {
    const Ref<NSMenuItem> item = GetNSMenuItem(Self());
    if (item) {
        item->setTarget(Target(item));
        item->setAction(ActionSelector());
        item->setTag(Event_CocoaTag());
    }
    Responder* target = Target(item);
    if (target == nullptr) target = NSApp()->targetForAction(ActionSelector(), nullptr, item);
    Enabled = target != nullptr && IsValid(*target, item);
    Event_EnableMenu(target);
}

Ref<NSMenu> CocoaMenuItem::GetNSMenu(const Ref<MenuItem>& item) {
    if (!item) return nullptr;
    if (item == ApplicationMenuBar()) return MainMenu();
    const Ref<NSMenuItem> native = GetNSMenuItem(item);
    return native ? native->submenu() : nullptr;
}

Ref<NSMenuItem> CocoaMenuItem::GetNSMenuItem(const Ref<MenuItem>& item) {
    return ItemWithTitleOf(item, GetNSMenu(GetParentOf(item)));
}

Ref<MenuItem> CocoaMenuItem::GetParentOf(const Ref<MenuItem>& item) {
    const Ref<MenuItem> bar = item ? ApplicationMenuBar() : nullptr;
    if (!bar) return nullptr;
    std::vector<Ref<MenuItem>> stack = {bar};
    while (!stack.empty()) {
        Ref<MenuItem> parent = stack.back();
        stack.pop_back();
        for (int64_t index = 0; index < parent->Count(); ++index) {
            const Ref<MenuItem>& child = parent->Item(index);
            if (!child) continue;
            if (child == item) return parent;
            if (child->Count() > 0) stack.push_back(child);
        }
    }
    return nullptr;
}

Ref<NSMenu> CocoaMenuItem::MainMenu() {
    return NSApp()->mainMenu();
}

NSApplication::SharedApplication* CocoaMenuItem::NSApp() {
    return NSApplication::sharedApplication();
}

void CocoaMenuItemRedo::Event_EnableMenu(Responder* target) {
    const bool asks = target != nullptr && Responds(*target, "undoManager");
    const Ref<NSUndoManager> manager = asks ? target->undoManager() : nullptr;
    Enabled = manager && manager->canRedo();
}

}  // namespace dunvey::CocoaMenu
