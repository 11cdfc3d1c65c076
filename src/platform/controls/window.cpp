#include "platform/controls/window.h"

#include <algorithm>

#include "platform/controls/push_button.h"
#include "platform/menus/native_menu.h"

namespace dunvey {
namespace {

Size AtLeast(const Size& size, const Size& least) {
    return {std::max(size.Width, least.Width), std::max(size.Height, least.Height)};
}

Size AtMost(const Size& size, const Size& most) {
    return {std::min(size.Width, most.Width), std::min(size.Height, most.Height)};
}

/// Keeps the windows of Show alive. Never destroyed: Qt calls exit when the display is lost, and
/// destroying a window after that would use freed Qt objects.
std::vector<std::shared_ptr<Window>>& kept = *new std::vector<std::shared_ptr<Window>>;

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

void Window::ChangeSide(int64_t& side, int64_t length) {
    const Size before = Actual();
    side = length;
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

std::shared_ptr<Window::Presence> Window::Appear(bool modal) {
    Open();
    auto presence = std::make_shared<Presence>();
    presence->view = Desktop::Current().Show(*this, modal);
    presence->place = ResponderChain::AddWindow(*this);
    presence_ = presence;
    return presence;
}

void Window::Show() {
    if (closed_) return;
    const auto presence = presence_.lock();
    if (!presence) {
        held_ = Appear(false);
        if (auto self = weak_from_this().lock()) kept.push_back(std::move(self));
        return;
    }
    presence->view->Raise();
    ResponderChain::BringToFront(presence->place);
}

void Window::ShowModal() {
    if (closed_ || !presence_.expired()) return;
    const std::shared_ptr<Presence> presence = Appear(true);
    loop_.Run();
}

void Window::Close() {
    if (std::exchange(closed_, true)) return;
    const auto alive = weak_from_this().lock();
    Changed();
    loop_.Leave();
    held_.reset();
    std::erase(kept, alive);
    Event_Close();
}

void Window::HideAll() {
    for (const std::shared_ptr<Window>& window : std::exchange(kept, {}))
        window->held_.reset();
}

void Window::Dismiss(UserAction key) {
    const auto alive = weak_from_this().lock();
    if (const Ref<PushButton> button = Button(&PushButton::Cancel)) {
        button->Press(key);
    } else {
        Close();
    }
}

void Window::Activate(UserAction) {
    if (const auto presence = presence_.lock()) ResponderChain::BringToFront(presence->place);
}

bool Window::respondsToSelector(const Selector& selector) const {
    constexpr const char* kTaken[] = {
        "performClose:", "performMiniaturize:", "performZoom:", "validateMenuItem:"};
    return !closed_ &&
           std::find(std::begin(kTaken), std::end(kTaken), selector.Name()) != std::end(kTaken);
}

bool Window::CanPerform(const Selector& action) const {
    if (closed_) return false;
    if (action.Name() == "performMiniaturize:") return MinimizeButton;
    if (action.Name() == "performZoom:") return MaximizeButton;
    return true;
}

bool Window::validateMenuItem(const Ref<NSMenuItem>& item) {
    return item && CanPerform(item->action());
}

void Window::perform(const Selector& action, const Ref<NSMenuItem>&) {
    const auto presence = presence_.lock();
    if (!presence || !CanPerform(action)) return;
    if (action.Name() == "performClose:") Close();
    if (action.Name() == "performMiniaturize:") presence->view->Minimize();
    if (action.Name() == "performZoom:") presence->view->Zoom();
}

Ref<PushButton> Window::Button(bool (PushButton::*is)() const) const {
    for (const Ref<RectControl>& control : controls_) {
        const Ref<PushButton> button = control.As<PushButton>();
        if (button && ((*button).*is)() && button->Enabled()) return button;
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
    const bool canOnlyBeClosed = CloseButton && !MinimizeButton && !MaximizeButton;
    if (!Button(&PushButton::Cancel) && !canOnlyBeClosed) return false;
    Dismiss(key);
    return true;
}

}  // namespace dunvey
