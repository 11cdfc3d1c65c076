#pragma once

#include "platform/bundles/system.h"

namespace dunvey {

/// The texts of the dock window.
namespace Dock {

inline constexpr LocalizedText kDropDocuments{"Dock.kDropDocuments",
                                              "Drop documents here to open them"};
inline constexpr LocalizedText kNothingToOpen{"Dock.kNothingToOpen",
                                              "There is no document among these"};
inline constexpr LocalizedText kChooseDocuments{"Dock.kChooseDocuments", "Choose documents…"};
/// The kind of files that the file dialog lists.
inline constexpr LocalizedText kDocuments{"Dock.kDocuments", "Documents"};

}  // namespace Dock
}  // namespace dunvey
