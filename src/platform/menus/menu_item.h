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

    /// What Find looks for.
    std::string Name;
    /// The caption, with "&" before the mnemonic; "-" makes a separator.
    std::string Text;
    bool Enabled = true;
    bool Visible = true;
    /// Whether each validation sets Enabled: True for a menu and for an item with a handler.
    bool AutoEnable = true;
    /// Such as "Cmd+Shift+Z"; empty for none.
    std::string KeyboardShortcut;
    /// The handler. Returns whether the command was carried out.
    std::function<bool()> Action;

    bool IsSeparator() const { return Text == "-"; }

    /// A nil item is allowed: it counts and is never shown.
    void Append(Ref<MenuItem> item) { items_.push_back(std::move(item)); }
    int64_t Count() const { return static_cast<int64_t>(items_.size()); }
    /// The item at the 0-based index. Raises OutOfBoundsException.
    const Ref<MenuItem>& Item(int64_t index) const;
    const std::vector<Ref<MenuItem>>& Items() const { return items_; }
    /// The first descendant of that name, depth first; nil if there is none.
    Ref<MenuItem> Find(const std::string& name) const;
    /// The visible items, without leading, trailing and repeated separators.
    std::vector<Ref<MenuItem>> ItemsShown() const;

    /// Updates Enabled of the menu's items. Called before the menu is shown.
    void Validate();
    /// The user chooses the item in a menu or by its shortcut. The item is validated first; a menu,
    /// a separator, and a disabled or invisible item can't be chosen. Returns whether the command
    /// was carried out.
    bool Choose(UserAction);

    /// The item was chosen. The default calls the handler. Returns whether the command was carried
    /// out.
    virtual bool Event_Action() { return Action && Action(); }
    /// The item is being validated, after AutoEnable. May set Enabled.
    virtual void Event_EnableMenu() {}

 protected:
    /// This item; nil if it has no owner.
    Ref<MenuItem> Self() { return Ref<MenuItem>(weak_from_this().lock()); }

 private:
    friend class NSMenuItem;
    /// What is set on the item's NSMenuItem.
    struct Native {
        Responder* target = nullptr;
        Selector action;
        int64_t tag = 0;
    };

    void ValidateItem();

    Native native_;
    std::vector<Ref<MenuItem>> items_;
};

/// An item of the application menu, where there is one.
class ApplicationMenuItem : public MenuItem {
 public:
    using MenuItem::MenuItem;
};

/// Ends the program. Always enabled.
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
