#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dunvey {

/// The caption of a menu item as the user reads it, taken out of its text: the first "&" marks the
/// character behind it and isn't shown.
struct MenuCaption {
    explicit MenuCaption(std::string text);

    std::string title;
    /// Where in the title the marked character begins, in bytes; none if no character is marked.
    std::optional<size_t> mnemonic;
};

/// A keyboard shortcut in its parts.
struct KeyCombination {
    bool command = false;
    bool shift = false;
    bool option = false;
    bool control = false;
    /// As it was written, such as "Z" or "F1".
    std::string key;

    friend bool operator==(const KeyCombination&, const KeyCombination&) = default;
};

/// Reads a shortcut such as "Cmd+Shift+Z": any of Cmd, Shift, Option and Control, then the key,
/// which may be "+" itself. None for an empty one, an unknown modifier or one without a key.
std::optional<KeyCombination> ParseKeyboardShortcut(std::string_view shortcut);

}  // namespace dunvey
