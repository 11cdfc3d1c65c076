#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/bundles/system.h"

namespace dunvey {

/// A text of the dock window.
struct DockText {
    /// In the translation table.
    std::string_view key;
    /// In English.
    std::string_view text;

    /// The text in a language; empty means the user's.
    std::string operator()(const std::string& language) const {
        return System::_GetLocalizedString(key, text, language);
    }
};

namespace Dock {

inline constexpr DockText kDropDocuments{"Dock.kDropDocuments", "Drop documents here to open them"};
inline constexpr DockText kNothingToOpen{"Dock.kNothingToOpen", "There is no document among these"};
inline constexpr DockText kChooseDocuments{"Dock.kChooseDocuments", "Choose documents…"};
/// The kind of files that the file dialog lists.
inline constexpr DockText kDocuments{"Dock.kDocuments", "Documents"};

inline constexpr std::array kAll = {kDropDocuments, kNothingToOpen, kChooseDocuments, kDocuments};

}  // namespace Dock

}  // namespace dunvey
