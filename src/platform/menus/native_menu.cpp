#include "platform/menus/native_menu.h"

#include "platform/controls/responder_chain.h"
#include "platform/loop/application.h"
#include "platform/menus/menu_caption.h"

namespace dunvey {

std::string NSMenuItem::title() const {
    return item_->IsSeparator() ? std::string() : MenuCaption(item_->Text).title;
}

Ref<NSMenu> NSMenuItem::submenu() const {
    return item_->Count() > 0 ? New<NSMenu>(item_) : nullptr;
}

Ref<NSMenuItem> NSMenu::itemWithTitle(const std::string& title) const {
    for (const Ref<MenuItem>& child : menu_->Items()) {
        if (!child) continue;
        Ref<NSMenuItem> item = New<NSMenuItem>(child);
        if (item->title() == title) return item;
    }
    return nullptr;
}

namespace NSApplication {

Ref<NSMenu> SharedApplication::mainMenu() const {
    const Ref<MenuBar>& bar = Application::Current()->MenuBar();
    return bar ? New<NSMenu>(bar) : nullptr;
}

Responder* SharedApplication::targetForAction(const Selector& action, Responder* to,
                                              const Ref<NSMenuItem>&) const {
    if (to == nullptr) return ResponderChain::FirstThatTakes(action);
    return to->respondsToSelector(action) ? to : nullptr;
}

bool SharedApplication::sendAction(const Selector& action, Responder* to,
                                   const Ref<NSMenuItem>& from) const {
    Responder* const target = targetForAction(action, to, from);
    if (target == nullptr) return false;
    target->perform(action, from);
    return true;
}

bool SharedApplication::respondsToSelector(const Selector& selector) const {
    return selector == NSSelectorFromString("arrangeInFront:");
}

void SharedApplication::perform(const Selector&, const Ref<NSMenuItem>&) {
    activateIgnoringOtherApps(true);
}

SharedApplication* sharedApplication() {
    static SharedApplication application;
    return &application;
}

}  // namespace NSApplication
}  // namespace dunvey
