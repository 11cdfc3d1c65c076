#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/responder.h"
#include "platform/loop/user_action.h"
#include "platform/values/reference.h"

namespace dunvey {

/// An item of the menu tree: a command, a separator, or a menu with items of its own.
class MenuItem : public std::enable_shared_from_this<MenuItem> {
 public:
    explicit MenuItem(std::string name = {}, std::string text = {})
        : Name(std::move(name)), Text(std::move(text)) {}
    virtual ~MenuItem() = default;
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    /// What it is found by.
    std::string Name;
    /// The caption, with "&" ahead of the mnemonic; "-" makes a separator.
    std::string Text;
    bool Enabled = true;
    bool Visible = true;
    /// Whether each validation sets Enabled: True for a menu, for an item with a joined handler,
    /// and for one of the editing commands while a responder answers it.
    bool AutoEnable = true;
    /// Such as "Cmd+Shift+Z"; empty for none.
    std::string KeyboardShortcut;
    /// The joined handler. Returns whether the command was dealt with.
    std::function<bool()> Action;

    bool IsSeparator() const { return Text == "-"; }

    /// A nil is taken; it counts, and stands for nothing.
    void Append(Ref<MenuItem> item) { items_.push_back(std::move(item)); }
    int64_t Count() const { return static_cast<int64_t>(items_.size()); }
    /// The item at the 0-based position. Raises OutOfBoundsException.
    const Ref<MenuItem>& Item(int64_t index) const;
    const std::vector<Ref<MenuItem>>& Items() const { return items_; }
    /// The item of that name below this one, in the order of the tree; nil if there is none.
    Ref<MenuItem> Find(const std::string& name) const;
    /// What a menu shows: its visible items without separators that lead, trail or follow another.
    std::vector<Ref<MenuItem>> ItemsShown() const;

    /// The menu is about to show: decides anew which of its items are enabled.
    void Validate();
    /// The user chooses the item, in a menu or by its shortcut. It is validated first; a menu, a
    /// separator, and an item that is disabled or not visible can't be chosen. Returns whether the
    /// command was dealt with.
    bool Choose(UserAction);

    /// The item was chosen. Returns whether the command was dealt with. The default calls the
    /// joined handler; without one the responder chain gets the editing command of that name.
    virtual bool Event_Action();
    /// The item is validated, with AutoEnable taken into account already. It may set Enabled.
    virtual void Event_EnableMenu() {}

 protected:
    /// This item; nil if nothing refers to it.
    Ref<MenuItem> Self() { return Ref<MenuItem>(weak_from_this().lock()); }

 private:
    friend class NSMenuItem;
    /// What the native menu keeps of the item.
    struct Native {
        Responder* target = nullptr;
        Selector action;
        int64_t tag = 0;
    };

    void ValidateItem();

    Native native_;
    std::vector<Ref<MenuItem>> items_;
};

/// An item that lands in the application's own menu, where the system has one.
class ApplicationMenuItem : public MenuItem {
 public:
    using MenuItem::MenuItem;
};

/// The command that ends the program. It is always enabled.
class QuitMenuItem : public MenuItem {
 public:
    using MenuItem::MenuItem;
    bool Event_Action() override;
    void Event_EnableMenu() override { Enabled = true; }
};

/// The root of the menu tree.
class MenuBar : public MenuItem {
 public:
    using MenuItem::MenuItem;
};

}  // namespace dunvey
