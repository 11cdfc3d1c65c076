#pragma once

#include <functional>
#include <string>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"

namespace dunvey {

/// A button.
class PushButton : public RectControl {
 public:
    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption) { Put(caption_, caption); }
    /// Whether Return presses it.
    bool Default() const { return default_; }
    void SetDefault(bool isDefault) { Put(default_, isDefault); }
    /// Whether Escape presses it.
    bool Cancel() const { return cancel_; }
    void SetCancel(bool cancel) { Put(cancel_, cancel); }

    /// The user presses it. A disabled button can't be pressed.
    void Press(UserAction) {
        if (!Enabled()) return;
        const auto alive = KeepAlive();
        Event_Action();
    }

    std::function<void(PushButton&)> Action;
    /// The default calls the handler.
    virtual void Event_Action() {
        if (Action) Action(*this);
    }

 private:
    std::string caption_;
    bool default_ = false;
    bool cancel_ = false;
};

}  // namespace dunvey
