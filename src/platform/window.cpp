#include "platform/window.h"

#include <algorithm>

#include "platform/push_button.h"

namespace dunvey {
namespace {

Size AtLeast(const Size& size, const Size& least) {
    return {std::max(size.Width, least.Width), std::max(size.Height, least.Height)};
}

Size AtMost(const Size& size, const Size& most) {
    return {std::min(size.Width, most.Width), std::min(size.Height, most.Height)};
}

}  // namespace

Size Window::SmallestSize() const {
    return AtMost(minimum_, room_);
}

Size Window::LargestSize() const {
    return AtMost(maximum_, room_);
}

Size Window::Actual() const {
    return AtMost(AtLeast(wanted_, minimum_), LargestSize());
}

void Window::Apply(const Size& before) {
    const Size now = Actual();
    if (now != before) {
        for (const Ref<RectControl>& control : controls_)
            control->Follow(now.Width - design_.Width, now.Height - design_.Height);
    }
    Changed();
}

void Window::SetHeight(int64_t height) {
    const Size before = Actual();
    wanted_.Height = height;
    Apply(before);
}

void Window::SetMinHeight(int64_t height) {
    const Size before = Actual();
    minimum_.Height = height;
    Apply(before);
}

void Window::SetMinWidth(int64_t width) {
    const Size before = Actual();
    minimum_.Width = width;
    Apply(before);
}

void Window::SetMaxWidth(int64_t width) {
    const Size before = Actual();
    maximum_.Width = width;
    Apply(before);
}

void Window::SetMaxHeight(int64_t height) {
    const Size before = Actual();
    maximum_.Height = height;
    Apply(before);
}

void Window::Resize(UserAction, Size size) {
    const Size before = Actual();
    wanted_ = size;
    Apply(before);
}

void Window::Confine(UserAction, Size room) {
    const Size before = Actual();
    room_ = room;
    Apply(before);
}

void Window::Open() {
    if (std::exchange(opened_, true)) return;
    for (const Ref<RectControl>& control : controls_)
        control->Event_Open();
    Event_Open();
}

void Window::Show() {
    if (closed_) return;
    if (shown_) return shown_->Raise();
    Open();
    shown_ = Desktop::Current().Show(*this, false);
}

void Window::ShowModal() {
    if (closed_ || shown_) return;
    Open();
    const std::unique_ptr<Shown> shown = Desktop::Current().Show(*this, true);
    loop_.Run();
}

void Window::Close() {
    if (std::exchange(closed_, true)) return;
    Changed();
    loop_.Leave();
    shown_.reset();
    Event_Close();
}

void Window::Dismiss(UserAction) {
    const auto alive = weak_from_this().lock();
    Close();
}

Ref<PushButton> Window::Button(bool (PushButton::*is)() const) const {
    for (const Ref<RectControl>& control : controls_) {
        const Ref<PushButton> button = control.As<PushButton>();
        if (button && ((*button).*is)() && button->Enabled() && button->Visible()) return button;
    }
    return nullptr;
}

bool Window::PressDefault(UserAction key) {
    const auto alive = weak_from_this().lock();
    const Ref<PushButton> button = Button(&PushButton::Default);
    if (button) button->Press(key);
    return static_cast<bool>(button);
}

bool Window::PressCancel(UserAction key) {
    const auto alive = weak_from_this().lock();
    const Ref<PushButton> button = Button(&PushButton::Cancel);
    if (button) button->Press(key);
    return static_cast<bool>(button);
}

}  // namespace dunvey
