#pragma once

#include <string>
#include <vector>

#include "platform/reference.h"

namespace dunvey {

/// An item of the menu tree: a command, or a menu with items of its own.
class MenuItem {
 public:
    explicit MenuItem(std::string name, std::string text = {})
        : Text(std::move(text)), name_(std::move(name)) {}
    virtual ~MenuItem() = default;

    /// The name it is found by.
    const std::string& Name() const { return name_; }
    /// The caption.
    std::string Text;

    void Append(Ref<MenuItem> item) { items_.push_back(std::move(item)); }
    const std::vector<Ref<MenuItem>>& Items() const { return items_; }
    /// The item of that name below this one, in the order of the tree; nil if there is none.
    Ref<MenuItem> Find(const std::string& name) const;

 private:
    std::string name_;
    std::vector<Ref<MenuItem>> items_;
};

/// An item that lands in the application's own menu, wherever it stands in the tree.
class ApplicationMenuItem : public MenuItem {
 public:
    using MenuItem::MenuItem;
};

/// The root of the menu tree.
class MenuBar : public MenuItem {
 public:
    using MenuItem::MenuItem;
};

}  // namespace dunvey
