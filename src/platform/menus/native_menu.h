#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/responder.h"
#include "platform/menus/menu_item.h"

namespace dunvey {

class NSMenu;

/// The native side of a menu item. It is made anew each time it is asked for; what is set on it
/// stays with the menu item.
class NSMenuItem {
 public:
    explicit NSMenuItem(Ref<MenuItem> item) : item_(std::move(item)) {}

    /// The caption as the user reads it; empty for a separator.
    std::string title() const;
    /// Nil if the item has no items of its own.
    Ref<NSMenu> submenu() const;

    /// The target isn't kept alive. nullptr stands for the responder chain.
    Responder* target() const { return item_->native_.target; }
    void setTarget(Responder* target) { item_->native_.target = target; }
    const Selector& action() const { return item_->native_.action; }
    void setAction(const Selector& action) { item_->native_.action = action; }
    int64_t tag() const { return item_->native_.tag; }
    void setTag(int64_t tag) { item_->native_.tag = tag; }

 private:
    Ref<MenuItem> item_;
};

/// The native side of a menu or of the menu bar.
class NSMenu {
 public:
    explicit NSMenu(Ref<MenuItem> menu) : menu_(std::move(menu)) {}

    /// The first item with that title, not looking into its submenus; nil if there is none.
    Ref<NSMenuItem> itemWithTitle(const std::string& title) const;

 private:
    Ref<MenuItem> menu_;
};

namespace NSApplication {

/// The last link of the responder chain.
class SharedApplication final : public Responder {
 public:
    /// The native side of the application's menu bar; nil where it has none. Raises
    /// NilObjectException before there is an application.
    Ref<NSMenu> mainMenu() const;
    /// Who would answer: `to` if it takes the action, or the first of the responder chain that does
    /// where `to` is nullptr. nullptr for nobody.
    Responder* targetForAction(const Selector& action, Responder* to,
                               const Ref<NSMenuItem>& from) const;
    /// Has that one carry the action out; False if there is nobody.
    bool sendAction(const Selector& action, Responder* to, const Ref<NSMenuItem>& from) const;

    bool respondsToSelector(const Selector& selector) const override;
    void perform(const Selector& action, const Ref<NSMenuItem>& sender) override;
};

/// The one instance.
SharedApplication* sharedApplication();

}  // namespace NSApplication
}  // namespace dunvey
