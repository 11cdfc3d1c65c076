#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace dunvey {

/// The caption of a menu item, parsed from its text: the first "&" marks the character after it
/// and isn't shown.
struct MenuCaption {
    explicit MenuCaption(std::string text);

    std::string title;
    /// Byte offset of the marked character in the title; nullopt if no character is marked.
    std::optional<size_t> mnemonic;
};

}  // namespace dunvey
