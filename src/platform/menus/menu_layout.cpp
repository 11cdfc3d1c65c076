#include "platform/menus/menu_layout.h"

#include <algorithm>

#include "platform/menus/menu_caption.h"

namespace dunvey {
namespace {

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string Marked(const MenuCaption& caption) {
    std::string marked;
    for (size_t i = 0; i < caption.title.size(); ++i) {
        if (caption.title[i] == '&' || caption.mnemonic == i) marked += '&';
        marked += caption.title[i];
    }
    return marked;
}

/// The items that stand in the menu, with the separators that stay needed.
std::vector<Ref<MenuItem>> ItemsOf(const MenuItem& menu, const std::vector<Ref<MenuItem>>& moved,
                                   bool isHelp) {
    MenuItem standing;
    for (const Ref<MenuItem>& item : menu.Items()) {
        if (std::find(moved.begin(), moved.end(), item) == moved.end()) standing.Append(item);
    }
    for (const Ref<MenuItem>& item : moved)
        if (isHelp) standing.Append(item);
    return standing.ItemsShown();
}

std::vector<Ref<MenuItem>> ApplicationCommands(const MenuBar& bar) {
    std::vector<Ref<MenuItem>> commands;
    for (const Ref<MenuItem>& menu : bar.ItemsShown()) {
        for (const Ref<MenuItem>& item : menu->Items())
            if (item && IsApplicationCommand(*item)) commands.push_back(item);
    }
    return commands;
}

}  // namespace

bool IsApplicationCommand(const MenuItem& item) {
    return dynamic_cast<const ApplicationMenuItem*>(&item) != nullptr && !item.IsSeparator();
}

std::vector<MenuOnScreen> MenusOnScreen(const MenuBar& bar, bool hasApplicationMenu) {
    const bool moves = !hasApplicationMenu && bar.Find("HelpMenu");
    const auto moved = moves ? ApplicationCommands(bar) : std::vector<Ref<MenuItem>>();
    std::vector<MenuOnScreen> menus;
    for (const Ref<MenuItem>& menu : bar.ItemsShown()) {
        auto items = ItemsOf(*menu, moved, menu->Name == "HelpMenu");
        if (!items.empty()) menus.push_back({menu, std::move(items)});
    }
    return menus;
}

std::string MarkedCaption(const MenuItem& item) {
    return Marked(MenuCaption(item.Text));
}

std::string MarkedMenuCaption(const MenuItem& menu) {
    MenuCaption caption(menu.Text);
    if (caption.mnemonic || caption.title.empty()) return Marked(caption);
    if (IsLetter(caption.title[0])) {
        caption.mnemonic = 0;
        return Marked(caption);
    }
    if (menu.Name.empty()) return Marked(caption);
    return Marked(caption) + "(&" + menu.Name[0] + ")";
}

}  // namespace dunvey
