#include "platform/menu_item.h"

namespace dunvey {

Ref<MenuItem> MenuItem::Find(const std::string& name) const {
    for (const Ref<MenuItem>& item : items_) {
        if (item->Name() == name) return item;
        if (Ref<MenuItem> below = item->Find(name)) return below;
    }
    return nullptr;
}

}  // namespace dunvey
