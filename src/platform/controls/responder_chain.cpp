#include "platform/controls/responder_chain.h"

#include <algorithm>
#include <vector>

#include "platform/menus/native_menu.h"

namespace dunvey {
namespace {

/// The last one is in front. A dialog has no responder.
std::vector<ResponderChain::Entry*> entries;

ResponderChain::Place Add(Responder* responder) {
    ResponderChain::Place place(new ResponderChain::Entry{responder});
    entries.push_back(place.get());
    return place;
}

}  // namespace

void ResponderChain::Remover::operator()(Entry* entry) const {
    std::erase(entries, entry);
    delete entry;
}

ResponderChain::Place ResponderChain::AddWindow(Responder& window) {
    return Add(&window);
}

ResponderChain::Place ResponderChain::AddDialog() {
    return Add(nullptr);
}

void ResponderChain::BringToFront(const Place& window) {
    if (entries.back()->responder == nullptr) return;
    std::erase(entries, window.get());
    entries.push_back(window.get());
}

Responder* ResponderChain::FirstThatTakes(const Selector& action) {
    Responder* const front = entries.empty() ? nullptr : entries.back()->responder;
    for (Responder* responder :
         {front, static_cast<Responder*>(NSApplication::sharedApplication())})
        if (responder != nullptr && responder->respondsToSelector(action)) return responder;
    return nullptr;
}

}  // namespace dunvey
