#include "platform/controls/responder_chain.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "platform/menus/native_menu.h"

namespace dunvey {
namespace {

/// A window has its own number twice, a dialog is one without a responder; a control has that of
/// the window it stands in, 0 without one. Numbers aren't used again, so the controls of a window
/// that is gone are never asked.
struct Registered {
    int64_t id;
    int64_t window;
    Responder* responder;

    bool IsWindow() const { return id == window; }
};

/// The window in front is the last one, and so is the control that has the focus.
std::vector<Registered> registered;
int64_t lastId = 0;

/// Its responder is nullptr for a dialog, its number 0 without a window.
Registered FrontWindow() {
    const auto front =
        std::find_if(registered.rbegin(), registered.rend(), std::mem_fn(&Registered::IsWindow));
    return front == registered.rend() ? Registered{0, 0, nullptr} : *front;
}

}  // namespace

ResponderChain::Place& ResponderChain::Place::operator=(Place&& other) noexcept {
    if (this != &other) {
        GiveUp();
        id_ = std::exchange(other.id_, 0);
    }
    return *this;
}

void ResponderChain::Place::GiveUp() {
    if (id_ == 0) return;
    std::erase_if(registered, [this](const Registered& one) { return one.id == id_; });
    id_ = 0;
}

void ResponderChain::Place::BringToFront() {
    if (FrontWindow().responder == nullptr) return;
    std::stable_partition(registered.begin(), registered.end(),
                          [this](const Registered& one) { return one.window != id_; });
}

ResponderChain::Place ResponderChain::AddWindow(Responder& window) {
    const int64_t id = ++lastId;
    registered.push_back({id, id, &window});
    return Place(id);
}

ResponderChain::Place ResponderChain::AddDialog() {
    const int64_t id = ++lastId;
    registered.push_back({id, id, nullptr});
    return Place(id);
}

ResponderChain::Place ResponderChain::AddFocus(Responder& control) {
    const int64_t id = ++lastId;
    registered.push_back({id, FrontWindow().id, &control});
    return Place(id);
}

Responder* ResponderChain::FirstThatTakes(const Selector& action) {
    const int64_t front = FrontWindow().id;
    const auto takes = [&](Responder* responder) {
        return responder != nullptr && responder->respondsToSelector(action);
    };
    // A window stands ahead of its controls, so it is met behind them.
    const auto found = std::find_if(
        registered.rbegin(), registered.rend(),
        [&](const Registered& one) { return one.window == front && takes(one.responder); });
    if (found != registered.rend()) return found->responder;
    Responder* application = NSApplication::sharedApplication();
    return takes(application) ? application : nullptr;
}

}  // namespace dunvey
