#pragma once

#include <functional>
#include <string>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"

namespace dunvey {

/// A check box. An assignment of Value from code fires no event.
class CheckBox : public RectControl {
 public:
    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption) { Put(caption_, caption); }
    bool Value() const { return value_; }
    void SetValue(bool value) { Put(value_, value); }

    /// The user toggles the value; then the event fires. Does nothing if disabled.
    void Toggle(UserAction) {
        if (!Enabled()) return;
        const auto alive = KeepAlive();
        SetValue(!value_);
        Event_Action();
    }

    std::function<void(CheckBox&)> Action;
    /// The default calls the handler.
    virtual void Event_Action() {
        if (Action) Action(*this);
    }

 private:
    std::string caption_;
    bool value_ = false;
};

}  // namespace dunvey
