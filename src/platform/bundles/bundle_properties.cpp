#include "platform/bundles/bundle_properties.h"

#include <unordered_map>

#include "platform/bundles/property_list.h"
#include "platform/files/streams.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

std::string BytesOf(const Ref<FolderItem>& file) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(file, false);
        const int64_t length = stream->Length();
        return length > static_cast<int64_t>(kPropertyListLimit) ? "" : stream->Read(length);
    } catch (const IOException&) {
        return {};
    }
}

BundleProperties Parse(const std::string& bytes) {
    using namespace CoreFoundationGlobalsMBS;
    const Ref<CFDictionaryMBS> list = NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(bytes));
    if (!list) return {};
    const auto text = [&list](const char* key) {
        const Ref<CFStringMBS> value = list->Lookup(*NewCFStringMBS(key));
        return value ? value->Text() : std::string();
    };
    return {text("CFBundleShortVersionString"), text("CFBundleIconFile")};
}

}  // namespace

BundleProperties ReadBundleProperties(const FolderItem& contents) {
    struct Parsed {
        std::string bytes;
        BundleProperties properties;
    };
    // To parse a list is ten times the work of reading it, and it seldom changes. Never destroyed:
    // where the screen goes away, the rest of a run is done at the very end of the process.
    static auto& remembered = *new std::unordered_map<std::string, Parsed>;
    const Ref<FolderItem> file = contents.Child("Info.plist");
    std::string bytes = BytesOf(file);
    Parsed& parsed = remembered[file->NativePath()];
    if (parsed.bytes != bytes) {
        parsed.properties = Parse(bytes);
        parsed.bytes = std::move(bytes);
    }
    return parsed.properties;
}

}  // namespace dunvey
