#pragma once

#include <string>
#include <vector>

#include "platform/menus/menu_item.h"

namespace dunvey {

/// A menu of the bar as it stands on the screen.
struct MenuOnScreen {
    Ref<MenuItem> menu;
    std::vector<Ref<MenuItem>> items;
};

/// Whether the item is one for the application's own menu, other than a separator.
bool IsApplicationCommand(const MenuItem& item);

/// The visible menus that have something to show, in the order of the bar. Where the system has no
/// application's own menu, its commands stand in "HelpMenu", where its users look for them.
std::vector<MenuOnScreen> MenusOnScreen(const MenuBar& bar, bool hasApplicationMenu);

/// The item's caption with "&" ahead of the mnemonic and every other "&" doubled.
std::string MarkedCaption(const MenuItem& item);

/// The same for a menu of the bar, which the keyboard must reach: one without a mnemonic is given
/// its first letter, or in another script that of its name, behind the caption in brackets.
std::string MarkedMenuCaption(const MenuItem& menu);

}  // namespace dunvey
