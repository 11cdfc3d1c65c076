#include <unistd.h>

#include "fuzz/fuzz.h"
#include "fuzz/memory_file.h"
#include "platform/bundles/property_list.h"
#include "support/icon_file.h"
#include "support/temporary_folder.h"
#include "version/application_version.h"

namespace dunvey::fuzz {
namespace {

constexpr const char* kKey = "CFBundleShortVersionString";

/// An application whose property list is the file.
class Bundle {
 public:
    explicit Bundle(const MemoryFile& list) {
        folder_.MakeFolder("An.app/Contents");
        Check(symlink(list.Path().c_str(), (folder_ / "An.app/Contents/Info.plist").c_str()) == 0,
              "there is a bundle");
    }
    std::string Version() const {
        return InDesign::AppVersion(New<FolderItem>(folder_ / "An.app"));
    }

 private:
    test::TemporaryFolder folder_;
};

/// What the version is, parsed without the cache.
std::string Expected(std::string_view bytes) {
    using namespace CoreFoundationGlobalsMBS;
    const Ref<CFDictionaryMBS> list =
        NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(std::string(bytes)));
    const Ref<CFStringMBS> text = list ? list->Lookup(*NewCFStringMBS(kKey)) : nullptr;
    if (!text || text->Text().empty()) return "0.0.0";
    // UTF-8 needs at most three bytes for two of UTF-16, and an entity is longer than its
    // character.
    Check(text->Text().size() <= 2 * bytes.size(), "a text comes out of the list", text->Text());
    std::string version = text->Text();
    const std::string third = "CS 3 ";
    const size_t place = version.starts_with("CS 3") ? version.find(third) : version.npos;
    return place == version.npos ? version : version.erase(place, third.size());
}

/// A binary list with the version after another text.
std::string BinaryList(const std::string& version) {
    const std::string objects[] = {"\xD2\1\2\3\4", "\x51k", "\x5F\x10\x1A" + std::string(kKey),
                                   "\x51v", "\x5F\x12" + test::BigEndian(version.size()) + version};
    std::string list = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += test::BigEndian(list.size());
        list += object;
    }
    const std::string zeros(8, '\0');
    return list + offsets + zeros.substr(2) + "\4\1" + zeros.substr(1) + "\5" + zeros +
           zeros.substr(4) + test::BigEndian(list.size());
}

}  // namespace

void TryInput(std::string_view bytes) {
    static MemoryFile file;
    static const Bundle bundle(file);
    const std::string text = "9" + std::string(bytes);
    Check(Expected(BinaryList(text)) == text, "a sound list has its version", text);
    file.Write(bytes);
    const std::string expected = Expected(bytes);
    Check(bundle.Version() == expected, "the version is the list's text", expected);
    Check(bundle.Version() == expected, "the cached version is the same", expected);
    file.Write(std::string(kPropertyListLimit + 1, ' ').replace(0, bytes.size(), bytes));
    Check(bundle.Version() == "0.0.0", "a list that is too large has no version");
}

}  // namespace dunvey::fuzz
