#include "version/application_version.h"

#include <unordered_map>

#include "platform/exceptions.h"
#include "platform/property_list.h"
#include "platform/streams.h"
#include "platform/text.h"

namespace dunvey::InDesign {
namespace {

constexpr const char* kUnknown = "0.0.0";

std::string ParsedVersion(const std::string& bytes) {
    namespace CoreFoundation = CoreFoundationGlobalsMBS;
    const Ref<CFDictionaryMBS> list =
        CoreFoundation::NewCFObjectMBSFromXML(CoreFoundation::NewCFBinaryDataMBSStr(bytes));
    if (!list) return {};
    const Ref<CFStringMBS> version =
        list->Lookup(*CoreFoundation::NewCFStringMBS("CFBundleShortVersionString"));
    return version ? version->Text() : std::string();
}

/// The version in the property list's bytes. The bytes come from the disk each time, but to parse
/// them is ten times the work of reading them, and they seldom change.
const std::string& RememberedVersion(const std::string& path, std::string bytes) {
    struct Parsed {
        std::string bytes;
        std::string version;
    };
    static std::unordered_map<std::string, Parsed> parsed;
    const auto [entry, added] = parsed.try_emplace(path);
    if (added || entry->second.bytes != bytes) {
        entry->second.version = ParsedVersion(bytes);
        entry->second.bytes = std::move(bytes);
    }
    return entry->second.version;
}

/// The bytes of the file; empty if it can't be read or is larger than a property list may be.
std::string PropertyListBytes(const Ref<FolderItem>& file) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(file, false);
        const int64_t length = stream->Length();
        if (length > static_cast<int64_t>(kPropertyListLimit)) return {};
        return stream->Read(length);
    } catch (const IOException&) {
        return {};
    }
}

}  // namespace

std::string AppVersion(const Ref<FolderItem>& application) {
    if (!application || !application->Exists()) return kUnknown;
    if (InStr(0, application->Name(), "2.0") != 0) return "2.0.?";
    const Ref<FolderItem> file = application->Child("Contents")->Child("Info.plist");
    if (!file || !file->Exists()) return kUnknown;
    std::string bytes = PropertyListBytes(file);
    if (bytes.empty()) return kUnknown;
    const std::string& version = RememberedVersion(file->NativePath(), std::move(bytes));
    if (version.empty()) return kUnknown;
    return Left(version, 4) == "CS 3" ? Replace(version, "CS 3 ", "") : version;
}

}  // namespace dunvey::InDesign
