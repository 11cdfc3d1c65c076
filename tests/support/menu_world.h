#pragma once

#include <set>
#include <string>

#include "platform/loop/application.h"
#include "platform/menus/native_menu.h"
#include "support/user.h"
#include "support/world.h"

namespace dunvey::test {

/// Takes the selectors that it is given and writes down what it is asked.
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

/// An application with a menu bar, and the user's hand on it.
class MenuWorld : public World {
 protected:
    MenuWorld() { Application::Register(application_); }
    ~MenuWorld() override { Application::Register(nullptr); }

    static bool Choose(const Ref<MenuItem>& item) { return item->Choose(User::ByUser()); }

    class PlainApplication final : public Application {
     public:
        void Event_Close() override { closed = true; }
        void Event_OpenDocument(const Ref<FolderItem>&) override {}
        bool closed = false;
    };
    const Ref<PlainApplication> application_ = New<PlainApplication>();
};

}  // namespace dunvey::test
