#pragma once

#include <functional>
#include <string>

#include "platform/loop/application.h"
#include "platform/loop/desktop.h"

namespace dunvey::test {

/// Gives the key that only a desktop can make: `User::ByUser()`.
class User : public Desktop {
 public:
    using Desktop::ByUser;
};

/// An application that logs its events.
class LogApplication : public Application {
 public:
    void Event_Open() override { open(); }
    void Event_Close() override { log += "close "; }
    void Event_OpenDocument(const Ref<FolderItem>& document) override {
        log += document->Name() + " ";
        if (document->Name() == "ask") ask();
    }
    std::function<void()> open = [] {};
    /// Called for a document of this name.
    std::function<void()> ask = [] {};
    std::string log;
};

}  // namespace dunvey::test
