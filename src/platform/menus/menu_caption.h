#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dunvey {

/// The caption of a menu item, parsed from its text: the first "&" marks the character after it
/// and isn't shown.
struct MenuCaption {
    explicit MenuCaption(std::string text);

    std::string title;
    /// Byte offset of the marked character in the title; none if no character is marked.
    std::optional<size_t> mnemonic;
};

/// The parts of a keyboard shortcut.
struct KeyCombination {
    bool command = false;
    bool shift = false;
    bool option = false;
    bool control = false;
    /// As written, such as "Z" or "F1".
    std::string key;

    friend bool operator==(const KeyCombination&, const KeyCombination&) = default;
};

/// Parses a shortcut such as "Cmd+Shift+Z": any of Cmd, Shift, Option and Control, then the key,
/// which may be "+" itself. None for an empty text, an unknown modifier or a missing key.
std::optional<KeyCombination> ParseKeyboardShortcut(std::string_view shortcut);

}  // namespace dunvey
