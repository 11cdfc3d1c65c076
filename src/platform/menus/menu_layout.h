#pragma once

#include <string>
#include <vector>

#include "platform/menus/menu_item.h"

namespace dunvey {

/// A menu of the bar as it is shown.
struct MenuOnScreen {
    Ref<MenuItem> menu;
    std::vector<Ref<MenuItem>> items;
};

/// Whether the item belongs into the application menu of macOS; False for its separators.
bool IsApplicationCommand(const MenuItem& item);

/// The visible menus that aren't empty, in the order of the bar. Without an application menu its
/// commands are shown in "HelpMenu", the last menu of the bar.
std::vector<MenuOnScreen> MenusOnScreen(const MenuBar& bar, bool hasApplicationMenu);

/// The item's caption with "&" before the mnemonic and every other "&" doubled.
std::string MarkedCaption(const MenuItem& item);

/// The same for a menu of the bar, which needs a mnemonic: by default its first letter, or in a
/// script without Latin letters the first letter of its name, in brackets at the end.
std::string MarkedMenuCaption(const MenuItem& menu);

}  // namespace dunvey
