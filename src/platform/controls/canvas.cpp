#include "platform/controls/canvas.h"

namespace dunvey {

bool Canvas::MouseDown(UserAction, int64_t x, int64_t y) {
    if (!Enabled()) return false;
    const auto alive = KeepAlive();
    return Event_MouseDown(x, y);
}

void Canvas::MouseUp(UserAction, int64_t x, int64_t y) {
    const auto alive = KeepAlive();
    Event_MouseUp(x, y);
}

void Canvas::Event_Paint(Graphics& graphics) {
    if (Paint) Paint(*this, graphics);
}

bool Canvas::Event_MouseDown(int64_t x, int64_t y) {
    return MouseDownHandler && MouseDownHandler(*this, x, y);
}

void Canvas::Event_MouseUp(int64_t x, int64_t y) {
    if (MouseUpHandler) MouseUpHandler(*this, x, y);
}

}  // namespace dunvey
