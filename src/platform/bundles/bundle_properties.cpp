#include "platform/bundles/bundle_properties.h"

#include <map>

#include "platform/bundles/property_list.h"

namespace dunvey {
namespace {

BundleProperties Parse(const std::string& bytes) {
    using namespace CoreFoundationGlobalsMBS;
    const Ref<CFDictionaryMBS> list = NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(bytes));
    if (!list) return {};
    return {list->Text("CFBundleShortVersionString"), list->Text("CFBundleIconFile"),
            list->Text("CFBundleExecutable")};
}

}  // namespace

BundleProperties ReadBundleProperties(const FolderItem& contents) {
    struct Parsed {
        std::string bytes;
        BundleProperties properties;
    };
    // This is called for each version and document, and parsing takes ten times as long as reading.
    static std::map<std::string, Parsed> cache;
    const std::string path = contents.Child("Info.plist")->NativePath();
    std::string bytes = ReadPropertyListFile(path);
    Parsed& parsed = cache[path];
    if (parsed.bytes != bytes) parsed = {bytes, Parse(bytes)};
    return parsed.properties;
}

}  // namespace dunvey
