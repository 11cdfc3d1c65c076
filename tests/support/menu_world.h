#pragma once

#include <set>
#include <string>

#include "platform/menus/native_menu.h"
#include "support/application.h"
#include "support/world.h"

namespace dunvey::test {

/// Takes these selectors and logs its calls.
class RecordingResponder final : public Responder {
 public:
    explicit RecordingResponder(std::set<std::string> selectors = {})
        : takes(std::move(selectors)) {}

    bool respondsToSelector(const Selector& selector) const override {
        return takes.count(selector.Name()) > 0;
    }
    void perform(const Selector& action, const Ref<NSMenuItem>& sender) override {
        log += action.Name() + "(" + (sender ? sender->title() : "nil") + ") ";
    }
    bool validateMenuItem(const Ref<NSMenuItem>& item) override {
        log += "menu(" + (item ? item->action().Name() : "nil") + ") ";
        return validMenuItem;
    }
    bool validateUserInterfaceItem(const Ref<NSMenuItem>& item) override {
        log += "interface(" + (item ? item->action().Name() : "nil") + ") ";
        return validInterfaceItem;
    }
    Ref<NSUndoManager> undoManager() override { return manager; }

    std::set<std::string> takes;
    bool validMenuItem = false;
    bool validInterfaceItem = false;
    Ref<NSUndoManager> manager;
    std::string log;
};

/// A registered application whose menu items the user can choose.
class MenuWorld : public World {
 protected:
    MenuWorld() { Application::Register(application_); }
    ~MenuWorld() override { Application::Register(nullptr); }

    static bool Choose(const Ref<MenuItem>& item) { return item->Choose(User::ByUser()); }

    const Ref<LogApplication> application_ = New<LogApplication>();
};

}  // namespace dunvey::test
