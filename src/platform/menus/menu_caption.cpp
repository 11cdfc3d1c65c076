#include "platform/menus/menu_caption.h"

#include <utility>

namespace dunvey {
namespace {

bool SetModifier(KeyCombination& keys, std::string_view name) {
    constexpr std::pair<std::string_view, bool KeyCombination::*> kModifiers[] = {
        {"Cmd", &KeyCombination::command},
        {"Shift", &KeyCombination::shift},
        {"Option", &KeyCombination::option},
        {"Control", &KeyCombination::control}};
    for (const auto& [modifier, member] : kModifiers) {
        if (name == modifier) return keys.*member = true;
    }
    return false;
}

}  // namespace

MenuCaption::MenuCaption(std::string text) : title(std::move(text)) {
    const size_t mark = title.find('&');
    if (mark == std::string::npos) return;
    title.erase(mark, 1);
    if (mark < title.size() && title[mark] != '&' && title[mark] != ' ') mnemonic = mark;
}

std::optional<KeyCombination> ParseKeyboardShortcut(std::string_view shortcut) {
    KeyCombination keys;
    // The key may be "+" itself, so the last character is never a separator.
    size_t plus = shortcut.find('+');
    while (plus != std::string_view::npos && plus + 1 < shortcut.size()) {
        if (!SetModifier(keys, shortcut.substr(0, plus))) return std::nullopt;
        shortcut.remove_prefix(plus + 1);
        plus = shortcut.find('+');
    }
    if (shortcut.empty() || (plus != std::string_view::npos && plus > 0)) return std::nullopt;
    keys.key = shortcut;
    return keys;
}

}  // namespace dunvey
