#include "platform/menus/menu_layout.h"

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

}  // namespace

bool IsApplicationCommand(const MenuItem& item) {
    return dynamic_cast<const ApplicationMenuItem*>(&item) != nullptr && !item.IsSeparator();
}

std::vector<MenuOnScreen> MenusOnScreen(const MenuBar& bar, bool hasApplicationMenu) {
    const Ref<MenuItem> help = hasApplicationMenu ? nullptr : bar.Find("HelpMenu");
    MenuItem moved;
    std::vector<MenuOnScreen> menus;
    for (const Ref<MenuItem>& menu : bar.ItemsShown()) {
        MenuItem kept;
        for (const Ref<MenuItem>& item : menu->Items())
            (help && item && IsApplicationCommand(*item) ? moved : kept).Append(item);
        if (menu == help) {
            for (const Ref<MenuItem>& item : moved.Items())
                kept.Append(item);
        }
        std::vector<Ref<MenuItem>> items = kept.ItemsShown();
        if (!items.empty()) menus.push_back({menu, std::move(items)});
    }
    return menus;
}

std::string MarkedCaption(const MenuItem& item) {
    return Marked(MenuCaption(item.Text));
}

std::string MarkedMenuCaption(const MenuItem& menu) {
    MenuCaption caption(menu.Text);
    const bool isLatin = !caption.title.empty() && IsLetter(caption.title[0]);
    if (!caption.mnemonic && isLatin) caption.mnemonic = 0;
    const std::string marked = Marked(caption);
    if (caption.mnemonic || caption.title.empty() || menu.Name.empty()) return marked;
    return marked + "(&" + menu.Name[0] + ")";
}

}  // namespace dunvey
