#include "platform/menus/menu_item.h"

#include "platform/loop/application.h"
#include "platform/values/array.h"

namespace dunvey {

const Ref<MenuItem>& MenuItem::Item(int64_t index) const {
    return At(items_, index);
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
    if (AutoEnable) Enabled = Count() > 0 || Action;
    Event_EnableMenu();
}

bool MenuItem::Choose(UserAction) {
    const Ref<MenuItem> self = Self();
    ValidateItem();
    if (Count() > 0 || IsSeparator() || !Enabled || !Visible) return false;
    return Event_Action();
}

bool QuitMenuItem::Event_Action() {
    NSApplication::terminate();
    return true;
}

}  // namespace dunvey
