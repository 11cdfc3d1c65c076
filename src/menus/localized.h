#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/processes/system.h"

namespace dunvey {

/// A text that the user reads: its key in the translation table and its English default. It is
/// looked up at each call, in the given language; empty means the user's.
struct LocalizedText {
    std::string_view key;
    std::string_view text;

    std::string operator()(const std::string& language) const {
        return System::_GetLocalizedString(key, text, language);
    }
};

/// Messages, and the texts of windows and buttons. Blanks at an end belong to the text.
namespace Localized {

inline constexpr LocalizedText kBooting{"Localized.kBooting", "Booting"};
inline constexpr LocalizedText kCancel{"Localized.kCancel", "Cancel"};
inline constexpr LocalizedText kCapIgnoreWarning{"Localized.kCapIgnoreWarning", "Ignore warning"};
inline constexpr LocalizedText kMultipleAppWillLaunched{"Localized.kMultipleAppWillLaunched",
                                                        "Multiple InDesign.apps will be launched."};
inline constexpr LocalizedText kAllowQuitButtonActiveted{"Localized.kAllowQuitButtonActiveted",
                                                         "Activate the Quit button"};
/// Says which language the texts are in, "ja" or any other for English; never shown.
inline constexpr LocalizedText kLang{"Localized.kLang", "en"};
inline constexpr LocalizedText kQuitDunvey{"Localized.kQuitDunvey", "Quit Dunvey"};
inline constexpr LocalizedText kQuit{"Localized.kQuit", "Quit"};
inline constexpr LocalizedText kOpen{"Localized.kOpen", "Open"};
inline constexpr LocalizedText kAllowOpenHigherVersion{
    "Localized.kAllowOpenHigherVersion", "Allow a file to be opened by a higher version"};
/// Ahead of an application's name; in Japanese behind it.
inline constexpr LocalizedText kCapOpenWith{"Localized.kCapOpenWith", "Open with "};
/// Ahead of an application's name; in Japanese behind it.
inline constexpr LocalizedText kCapQuit{"Localized.kCapQuit", "Quit "};
inline constexpr LocalizedText kCapRecommendNotOpenNow{
    "Localized.kCapRecommendNotOpenNow",
    "InDesign.app to launched should keep only one as much as possible."};
inline constexpr LocalizedText kMassage_Unable_to_import_icon{
    "Localized.kMassage_Unable_to_import_icon", "Unable to import the icon."};
inline constexpr LocalizedText kMassage_put_Dunvey{
    "Localized.kMassage_put_Dunvey",
    "Please put Dunvey.app in the place where write permission is given."};
inline constexpr LocalizedText kMassage_AnotherVerAppBooting{
    "Localized.kMassage_AnotherVerAppBooting", "Another version of InDesign.app is booting."};
inline constexpr LocalizedText kMassage_SameVerAppNotInstalled{
    "Localized.kMassage_SameVerAppNotInstalled",
    "The same version of InDesign.app is not installed."};
inline constexpr LocalizedText kMassage_AppNotInstalled{"Localized.kMassage_AppNotInstalled",
                                                        "InDesign.app is not installed."};
inline constexpr LocalizedText kMassage_SystemRequirement{
    "Localized.kMassage_SystemRequirement",
    "The system requirement for Marlit Ai are up to macOS Mojave 10.14."};
inline constexpr LocalizedText kMassage_Quit{
    "Localized.kMassage_Quit", "Quit Marlti Id as this system does not meet the requirements."};
inline constexpr LocalizedText kNotificationWindowTitle{"Localized.kNotificationWindowTitle",
                                                        "Marlit Id - Notification"};

/// All of them, for whoever checks a translation.
inline constexpr std::array kAll = {kBooting,
                                    kCancel,
                                    kCapIgnoreWarning,
                                    kMultipleAppWillLaunched,
                                    kAllowQuitButtonActiveted,
                                    kLang,
                                    kQuitDunvey,
                                    kQuit,
                                    kOpen,
                                    kAllowOpenHigherVersion,
                                    kCapOpenWith,
                                    kCapQuit,
                                    kCapRecommendNotOpenNow,
                                    kMassage_Unable_to_import_icon,
                                    kMassage_put_Dunvey,
                                    kMassage_AnotherVerAppBooting,
                                    kMassage_SameVerAppNotInstalled,
                                    kMassage_AppNotInstalled,
                                    kMassage_SystemRequirement,
                                    kMassage_Quit,
                                    kNotificationWindowTitle};

}  // namespace Localized

/// The captions of the menu bar.
namespace LocalizedMenu {

inline constexpr LocalizedText kFile{"LocalizedMenu.kFile", "File"};
inline constexpr LocalizedText kFileClose{"LocalizedMenu.kFileClose", "Close"};
inline constexpr LocalizedText kEdit{"LocalizedMenu.kEdit", "Edit"};
inline constexpr LocalizedText kCut{"LocalizedMenu.kCut", "Cut"};
inline constexpr LocalizedText kCopy{"LocalizedMenu.kCopy", "Copy"};
inline constexpr LocalizedText kPaste{"LocalizedMenu.kPaste", "Paste"};
inline constexpr LocalizedText kDelete{"LocalizedMenu.kDelete", "Delete"};
inline constexpr LocalizedText kSelectAll{"LocalizedMenu.kSelectAll", "Select All"};
inline constexpr LocalizedText kWindow{"LocalizedMenu.kWindow", "Window"};
inline constexpr LocalizedText kMinimize{"LocalizedMenu.kMinimize", "Minimize"};
inline constexpr LocalizedText kZoom{"LocalizedMenu.kZoom", "Zoom"};
inline constexpr LocalizedText kBringAllToFront{"LocalizedMenu.kBringAllToFront",
                                                "Bring All to Front"};
inline constexpr LocalizedText kHelp{"LocalizedMenu.kHelp", "Help"};
/// Says which language the texts are in, "ja" or any other for English; never shown.
inline constexpr LocalizedText kLocal{"LocalizedMenu.kLocal", "en"};

/// All of them, for whoever checks a translation.
inline constexpr std::array kAll = {kFile,  kFileClose,       kEdit,      kCut,    kCopy,
                                    kPaste, kDelete,          kSelectAll, kWindow, kMinimize,
                                    kZoom,  kBringAllToFront, kHelp,      kLocal};

}  // namespace LocalizedMenu

}  // namespace dunvey
