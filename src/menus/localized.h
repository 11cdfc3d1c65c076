#pragma once

#include <string>
#include <string_view>

#include "platform/bundles/system.h"
#include "platform/text/text.h"

namespace dunvey {

/// Messages, and the texts of windows and buttons. A trailing blank is part of the text.
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
/// Before an application's name; after it in Japanese.
inline constexpr LocalizedText kCapOpenWith{"Localized.kCapOpenWith", "Open with "};
/// Before an application's name; after it in Japanese.
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

}  // namespace LocalizedMenu

/// Tool tips, texts for screen readers and other notes. "^0" stands for a name; see WithName.
namespace LocalizedNote {

/// The tips of rows that can't open the document; "^0" is the Command key.
inline constexpr LocalizedText kOlder{
    "LocalizedNote.kOlder",
    "Older than the document. Double-click with ^0 held down to open it all the same."};
inline constexpr LocalizedText kNewer{
    "LocalizedNote.kNewer",
    "Newer than the document: tick the box below to allow it, or double-click with ^0 held down."};
inline constexpr LocalizedText kVersionUnknown{"LocalizedNote.kVersionUnknown",
                                               "The document's version couldn't be read."};
/// "^0" is the short name of an application.
inline constexpr LocalizedText kWaiting{"LocalizedNote.kWaiting",
                                        "Waiting for ^0 to quit. Escape leaves the document out."};
inline constexpr LocalizedText kApplication{"LocalizedNote.kApplication", "Application"};
inline constexpr LocalizedText kVersion{"LocalizedNote.kVersion", "Version"};
inline constexpr LocalizedText kState{"LocalizedNote.kState", "State"};

/// The text in the user's language with the name in the place of "^0".
inline std::string WithName(const LocalizedText& text, const std::string& name) {
    return Replace(text(""), "^0", name);
}

}  // namespace LocalizedNote

}  // namespace dunvey
