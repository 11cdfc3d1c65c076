#include "versions_home.h"

#include <unistd.h>

#include <cstdio>

#include "support/headers.h"
#include "version/version_name.h"

namespace dunvey::bench {
namespace {

std::string Name(int index) {
    return "Adobe InDesign " + InDesign::GetAppName(std::to_string(VersionsHome::kOldest + index));
}

std::string Entry(const std::string& key, const std::string& text) {
    return "\t<key>" + key + "</key>\n\t<string>" + text + "</string>\n";
}

/// The entries that are looked for stand in the middle of many others.
std::string ListText(const std::string& version) {
    std::string others;
    for (int i = 0; i < 25; ++i) {
        others += Entry("Entry" + std::to_string(i), "A text as long as those in real lists are");
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" +
           others + Entry("CFBundleIconFile", "Icon") +
           Entry("CFBundleShortVersionString", version) + others + "</dict>\n</plist>\n";
}

}  // namespace

VersionsHome::VersionsHome(int versions) : versions_(versions) {
    folder_.MakeFolder("Applications");
    for (int i = 0; i < versions; ++i) {
        folder_.MakeFolder(Contents(i));
        folder_.Write(Contents(i) + "/Info.plist", ListText(std::to_string(kOldest + i) + ".0.1"));
    }
}

std::string VersionsHome::Contents(int index) const {
    return "Applications/" + Name(index) + "/" + Name(index) + ".app/Contents";
}

std::string VersionsHome::Application(int index) const {
    return folder_ / ("Applications/" + Name(index) + "/" + Name(index) + ".app");
}

std::string VersionsHome::PropertyList(int index) const {
    return folder_ / (Contents(index) + "/Info.plist");
}

void VersionsHome::AddPrograms(const std::string& program) const {
    for (int i = 0; i < versions_; ++i) {
        const std::string path = folder_.MakeFolder(Contents(i) + "/MacOS") + "/" + Name(i);
        if (link(program.c_str(), path.c_str()) != 0 &&
            symlink(program.c_str(), path.c_str()) != 0) {
            std::perror(path.c_str());
        }
    }
}

void VersionsHome::AddIcons(const std::string& icon) const {
    for (int i = 0; i < versions_; ++i) {
        folder_.MakeFolder(Contents(i) + "/Resources");
        folder_.Write(Contents(i) + "/Resources/Icon.icns", icon);
    }
}

void VersionsHome::AddOthers(int count) const {
    for (int i = 0; i < count; ++i)
        folder_.MakeFolder("Applications/Other " + std::to_string(i));
}

std::vector<std::string> VersionsHome::AddDocuments(int count, int version) const {
    folder_.MakeFolder("documents");
    std::vector<std::string> documents;
    for (int i = 0; i < count; ++i) {
        documents.push_back(folder_.Write("documents/document " + std::to_string(i) + ".indd",
                                          test::Header("DOCUMENT", version, 0)));
    }
    return documents;
}

}  // namespace dunvey::bench
