#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/values/observable.h"
#include "platform/values/reference.h"

namespace dunvey {

/// A rectangle in points from the window's top left corner.
struct Bounds {
    int64_t Left = 0;
    int64_t Top = 0;
    int64_t Width = 0;
    int64_t Height = 0;
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// The edges of a control that keep their distance from the same edges of the window.
struct Locks {
    bool Left = false;
    bool Top = false;
    bool Right = false;
    bool Bottom = false;
};

/// The base of the controls. An assignment from code fires no event, except that of ListIndex.
class RectControl : public Observable, public std::enable_shared_from_this<RectControl> {
 public:
    virtual ~RectControl() = default;

    /// Identifies the control in its window.
    const std::string& Name() const { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }

    /// The current bounds.
    const Bounds& Place() const { return place_; }
    int64_t Width() const { return place_.Width; }
    int64_t Height() const { return place_.Height; }
    /// Sets the bounds in a window of the design size, and the locks.
    void SetDesign(const Bounds& place, const Locks& locks);
    /// Moves and resizes the control as its locks say, for a window that is `wider` and `higher`
    /// than the design size by these points. Without locks on an axis nothing changes on it.
    void Follow(int64_t wider, int64_t higher);

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { Put(enabled_, enabled); }
    /// The position in the Tab order.
    int64_t TabIndex() const { return tabIndex_; }
    void SetTabIndex(int64_t index) { tabIndex_ = index; }

    /// The tool tip, which is also the description for screen readers. Empty for none.
    const std::string& HelpTag() const { return helpTag_; }
    void SetHelpTag(const std::string& helpTag) { Put(helpTag_, helpTag); }

    /// Fired once, when the control's window opens.
    virtual void Event_Open() {}

 protected:
    /// Keeps the control alive during its own event, which may close the window.
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
