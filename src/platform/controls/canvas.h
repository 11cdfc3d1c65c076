#pragma once

#include <functional>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"
#include "platform/pictures/graphics.h"
#include "platform/pictures/picture.h"

namespace dunvey {

/// A drawing area. It never has the keyboard focus.
class Canvas : public RectControl {
 public:
    /// Drawn below what Paint draws; nil for nothing.
    const Ref<Picture>& Backdrop() const { return backdrop_; }
    void SetBackdrop(const Ref<Picture>& picture) { Put(backdrop_, picture); }

    /// The user presses the mouse button. True if the handler claims the press: only then the
    /// release is reported.
    bool MouseDown(UserAction, int64_t x, int64_t y) {
        const auto alive = KeepAlive();
        return Enabled() && Event_MouseDown(x, y);
    }
    void MouseUp(UserAction, int64_t x, int64_t y) {
        const auto alive = KeepAlive();
        Event_MouseUp(x, y);
    }

    std::function<void(Canvas&, Graphics&)> Paint;
    std::function<bool(Canvas&, int64_t x, int64_t y)> MouseDownHandler;
    std::function<void(Canvas&, int64_t x, int64_t y)> MouseUpHandler;

    // The defaults call the handlers; without one a press isn't claimed.
    virtual void Event_Paint(Graphics& graphics) {
        if (Paint) Paint(*this, graphics);
    }
    virtual bool Event_MouseDown(int64_t x, int64_t y) {
        return MouseDownHandler && MouseDownHandler(*this, x, y);
    }
    virtual void Event_MouseUp(int64_t x, int64_t y) {
        if (MouseUpHandler) MouseUpHandler(*this, x, y);
    }

 private:
    Ref<Picture> backdrop_;
};

}  // namespace dunvey
