#include "fuzz/fuzz.h"
#include "platform/bundles/property_list.h"
#include "support/temporary_folder.h"
#include "version/application_version.h"

/// The input is a property list; without markup it is also the version in a valid one.
void dunvey::fuzz::TryInput(std::string_view bytes) {
    static const test::TemporaryFolder folder;
    folder.MakeFolder("An.app/Contents");
    const auto versionIn = [](const std::string& list) {
        folder.Write("An.app/Contents/Info.plist", list);
        return InDesign::AppVersion(New<FolderItem>(folder / "An.app"));
    };
    const std::string list(bytes);
    const std::string version = versionIn(list);
    Check(!version.empty(), "there is always a version");
    // UTF-8 takes at most three bytes for two of UTF-16, and an entity is longer than its
    // character.
    Check(version == "0.0.0" || version.size() <= 2 * list.size(), "it is in the list", version);
    std::string text = "9";
    for (const char c : bytes)
        text += c > ' ' && c != '<' && c != '&' && c < 0x7F ? c : '-';
    const std::string valid =
        "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" + text +
        "</string></dict></plist>";
    const bool fits = valid.size() <= kPropertyListLimit;
    Check(versionIn(valid) == (fits ? text : "0.0.0"), "a valid list has its version", text);
    Check(versionIn(list) == version, "another list in between changes nothing", version);
}
