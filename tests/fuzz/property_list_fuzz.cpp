#include <unistd.h>

#include "fuzz/fuzz.h"
#include "fuzz/memory_file.h"
#include "platform/bundles/binary_property_list.h"
#include "platform/bundles/property_list.h"
#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "support/icon_file.h"
#include "support/plain_list_check.h"
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

bool Contains(std::string_view bytes, std::string_view part) {
    return bytes.find(part) != bytes.npos;
}

/// Text of the basic plane as big-endian UTF-16; empty for other text.
std::string Utf16(const std::string& text) {
    std::string bytes;
    for (const EncodedText utf16 = ConvertEncoding({text, Encodings::UTF8}, Encodings::UTF16);
         bytes.size() + 1 < utf16.Bytes.size();) {
        bytes += {utf16.Bytes[bytes.size() + 1], utf16.Bytes[bytes.size()]};
    }
    return bytes;
}

/// A text comes out of the list's own bytes, and its key stands there too.
void CheckOrigin(std::string_view bytes, const std::string& text) {
    if (IsBinaryPropertyList(bytes)) {
        const bool replaced = Contains(text, Chr(0xFFFD));
        Check(Contains(bytes, text) || replaced || Contains(bytes, Utf16(text)),
              "the text stands in the list", text);
        Check(Contains(bytes, kKey) || Contains(bytes, Utf16(kKey)), "its key stands in the list");
    } else if (!Contains(bytes, "&") && !Contains(bytes, "<!") && !Contains(bytes, "<?")) {
        Check(Contains(bytes, text), "the text stands in the list", text);
        Check(Contains(bytes, kKey), "its key stands in the list");
    }
}

/// What the version is, read without the memory of former lists.
std::string Expected(std::string_view bytes) {
    using namespace CoreFoundationGlobalsMBS;
    const Ref<CFDictionaryMBS> list =
        NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(std::string(bytes)));
    const Ref<CFStringMBS> text = list ? list->Lookup(*NewCFStringMBS(kKey)) : nullptr;
    if (text) CheckOrigin(bytes, text->Text());
    if (!text || text->Text().empty()) return "0.0.0";
    std::string version = text->Text();
    const std::string third = "CS 3 ";
    const size_t place = version.starts_with("CS 3") ? version.find(third) : version.npos;
    return place == version.npos ? version : version.erase(place, third.size());
}

/// A binary list with the version and with another text, whose key stands first.
std::string BinaryList(const std::string& version) {
    const std::string length = test::BigEndian(version.size());
    const std::string objects[] = {"\xD2\1\2\3\4", "\x51k", "\x5F\x10\x1A" + std::string(kKey),
                                   "\x51v", "\x5F\x12" + length + version};
    std::string list = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += test::BigEndian(list.size());
        list += object;
    }
    const std::string zeros(8, '\0');
    const std::string table = test::BigEndian(list.size());
    return list + offsets + zeros.substr(2) + "\4\1" + zeros.substr(1) + "\5" + zeros +
           zeros.substr(4) + table;
}

}  // namespace

void TryInput(std::string_view bytes) {
    static MemoryFile file;
    static const Bundle bundle(file);
    Check(test::IsSoundIfPlain(bytes), "a plain list says what the library finds in it");
    const std::string text = "9" + std::string(bytes);
    Check(Expected(BinaryList(text)) == text, "a sound list has its version", text);
    file.Write(bytes);
    const std::string expected = Expected(bytes);
    Check(bundle.Version() == expected, "the version is the list's text", expected);
    Check(bundle.Version() == expected, "the version that is remembered is the same", expected);
    file.Write(std::string(kPropertyListLimit + 1, ' ').replace(0, bytes.size(), bytes));
    Check(bundle.Version() == "0.0.0", "a list that is too large has no version");
}

}  // namespace dunvey::fuzz
