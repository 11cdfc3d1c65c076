#include "platform/menus/menu_item.h"

#include <string_view>

#include "platform/loop/application.h"
#include "platform/menus/native_menu.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

/// The command that a text control answers, for the items that bear one of the standard names.
Selector EditingCommand(const std::string& name) {
    constexpr std::pair<std::string_view, const char*> kCommands[] = {{"EditCut", "cut:"},
                                                                      {"EditCopy", "copy:"},
                                                                      {"EditPaste", "paste:"},
                                                                      {"EditClear", "delete:"}};
    for (const auto& [item, command] : kCommands) {
        if (item == name) return NSSelectorFromString(command);
    }
    return {};
}

bool IsAnswered(const Selector& command) {
    return NSApplication::sharedApplication()->targetForAction(command, nullptr, nullptr) !=
           nullptr;
}

}  // namespace

const Ref<MenuItem>& MenuItem::Item(int64_t index) const {
    if (index < 0 || index >= Count()) throw OutOfBoundsException();
    return items_[static_cast<size_t>(index)];
}

Ref<MenuItem> MenuItem::Find(const std::string& name) const {
    for (const Ref<MenuItem>& item : items_) {
        if (!item) continue;
        if (item->Name == name) return item;
        if (Ref<MenuItem> below = item->Find(name)) return below;
    }
    return nullptr;
}

std::vector<Ref<MenuItem>> MenuItem::ItemsShown() const {
    std::vector<Ref<MenuItem>> shown;
    Ref<MenuItem> separator;
    for (const Ref<MenuItem>& item : items_) {
        if (!item || !item->Visible) continue;
        if (item->IsSeparator()) {
            if (!separator) separator = item;
            continue;
        }
        if (separator && !shown.empty()) shown.push_back(separator);
        separator = nullptr;
        shown.push_back(item);
    }
    return shown;
}

void MenuItem::Validate() {
    for (const Ref<MenuItem>& item : items_) {
        if (item) item->ValidateItem();
    }
}

void MenuItem::ValidateItem() {
    if (AutoEnable) Enabled = Count() > 0 || Action || IsAnswered(EditingCommand(Name));
    Event_EnableMenu();
}

bool MenuItem::Choose(UserAction) {
    const Ref<MenuItem> self = Self();
    ValidateItem();
    if (Count() > 0 || IsSeparator() || !Enabled || !Visible) return false;
    return Event_Action();
}

bool MenuItem::Event_Action() {
    if (Action) return Action();
    return NSApplication::sharedApplication()->sendAction(EditingCommand(Name), nullptr, nullptr);
}

bool QuitMenuItem::Event_Action() {
    NSApplication::terminate();
    return true;
}

}  // namespace dunvey
