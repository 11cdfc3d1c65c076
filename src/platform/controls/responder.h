#pragma once

#include <string>
#include <utility>

#include "platform/values/reference.h"

namespace dunvey {

class NSMenuItem;

/// The name of a command or a question, such as "undo:". Nobody responds to an empty one.
class Selector {
 public:
    Selector() = default;
    explicit Selector(std::string name) : name_(std::move(name)) {}
    const std::string& Name() const { return name_; }
    friend bool operator==(const Selector&, const Selector&) = default;

 private:
    std::string name_;
};

inline Selector NSSelectorFromString(const std::string& name) {
    return Selector(name);
}

/// The undo history of a text control.
class NSUndoManager {
 public:
    virtual ~NSUndoManager() = default;
    virtual bool canRedo() const = 0;
};

/// Something that may carry out a menu command: a window or the application.
class Responder {
 public:
    virtual ~Responder() = default;

    /// Whether it takes this command, or knows this question: "validateMenuItem:",
    /// "validateUserInterfaceItem:" or "undoManager". Unknown questions aren't asked.
    virtual bool respondsToSelector(const Selector& selector) const = 0;
    /// Carries out the command. The sender may be nil.
    virtual void perform(const Selector& action, const Ref<NSMenuItem>& sender) = 0;
    /// Whether the item's action can be carried out now.
    virtual bool validateMenuItem(const Ref<NSMenuItem>&) { return false; }
    virtual bool validateUserInterfaceItem(const Ref<NSMenuItem>&) { return false; }
    /// Nil for none.
    virtual Ref<NSUndoManager> undoManager() { return nullptr; }
};

}  // namespace dunvey
