#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/values/observable.h"
#include "platform/values/reference.h"

namespace dunvey {

/// A place in a window, in points from the window's top left corner.
struct Bounds {
    int64_t Left = 0;
    int64_t Top = 0;
    int64_t Width = 0;
    int64_t Height = 0;
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// Which edges of a control keep their distance from the same edges of the window.
struct Locks {
    bool Left = false;
    bool Top = false;
    bool Right = false;
    bool Bottom = false;
};

/// The base of the controls. What code assigns is state; nothing assigned from code fires an event,
/// but for Listbox's ListIndex.
class RectControl : public Observable, public std::enable_shared_from_this<RectControl> {
 public:
    virtual ~RectControl() = default;

    /// The name it is found by in its window.
    const std::string& Name() const { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }

    /// Where it stands now.
    const Bounds& Place() const { return place_; }
    int64_t Width() const { return place_.Width; }
    int64_t Height() const { return place_.Height; }
    /// Gives the place in a window of the design size, and what it does in others.
    void SetDesign(const Bounds& place, const Locks& locks);
    /// Moves and stretches as its locks say, in a window that is so much wider and higher than the
    /// design size. Without a lock on either side a control stays where it is.
    void Follow(int64_t wider, int64_t higher);

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { Put(enabled_, enabled); }
    /// The position in the order of the Tab key.
    int64_t TabIndex() const { return tabIndex_; }
    void SetTabIndex(int64_t index) { tabIndex_ = index; }

    /// What is worth knowing besides the caption or text: shown as tool tip, and the description
    /// that a screen reader gets. Empty for none.
    const std::string& HelpTag() const { return helpTag_; }
    void SetHelpTag(const std::string& helpTag) { Put(helpTag_, helpTag); }

    /// Fired once, when the control's window opens.
    virtual void Event_Open() {}

 protected:
    /// Keeps the control while its own event runs, which may close its window.
    std::shared_ptr<RectControl> KeepAlive() { return weak_from_this().lock(); }

 private:
    std::string name_;
    std::string helpTag_;
    Bounds design_;
    Bounds place_;
    Locks locks_;
    bool enabled_ = true;
    int64_t tabIndex_ = 0;
};

}  // namespace dunvey
