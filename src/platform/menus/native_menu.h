#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/responder.h"
#include "platform/menus/menu_item.h"

namespace dunvey {

class NSMenu;

/// The native side of a menu item. It is created at each request; its state is kept in the menu
/// item.
class NSMenuItem {
 public:
    explicit NSMenuItem(Ref<MenuItem> item) : item_(std::move(item)) {}

    /// The caption as shown; empty for a separator.
    std::string title() const;
    /// Nil if the item has no items.
    Ref<NSMenu> submenu() const;

    /// The target isn't owned. nullptr means the responder chain.
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

    /// The first item with that title, submenus not searched; nil if there is none.
    Ref<NSMenuItem> itemWithTitle(const std::string& title) const;

 private:
    Ref<MenuItem> menu_;
};

namespace NSApplication {

/// The end of the responder chain.
class SharedApplication final : public Responder {
 public:
    /// Nil if the application has no menu bar. Raises NilObjectException without an application.
    Ref<NSMenu> mainMenu() const;
    /// The responder that takes the action: `to`, or the first in the responder chain if `to` is
    /// nullptr. nullptr for none.
    Responder* targetForAction(const Selector& action, Responder* to,
                               const Ref<NSMenuItem>& from) const;
    /// Has that responder carry out the action; False if there is none.
    bool sendAction(const Selector& action, Responder* to, const Ref<NSMenuItem>& from) const;

    bool respondsToSelector(const Selector& selector) const override;
    void perform(const Selector& action, const Ref<NSMenuItem>& sender) override;
};

/// The one instance.
SharedApplication* sharedApplication();

}  // namespace NSApplication
}  // namespace dunvey
