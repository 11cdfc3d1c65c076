#include "platform/bundles/property_list.h"

#include <plist/plist.h>
#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/bundles/binary_property_list.h"
#include "platform/files/file_descriptor.h"
#include "platform/text/encoding.h"

namespace dunvey {
namespace {

/// The same XML in UTF-8 without a byte-order mark. libplist reads it as UTF-8 and ignores the
/// declared encoding.
std::string XmlInUtf8(const std::string& bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    constexpr std::string_view kBigEndianMark = "\xFE\xFF";
    const std::string_view start = std::string_view(bytes).substr(0, 2);
    const bool marked = start == kBigEndianMark || start == "\xFF\xFE";
    const bool bigEndian = start == std::string_view("\0<", 2);
    if (marked || bigEndian || start == std::string_view("<\0", 2)) {
        return ConvertEncoding(
                   {bigEndian ? std::string(kBigEndianMark) + bytes : bytes, Encodings::UTF16},
                   Encodings::UTF8)
            .Bytes;
    }
    return bytes.starts_with(kMark) ? bytes.substr(kMark.size()) : bytes;
}

Ref<CFDictionaryMBS> FromXml(const std::string& xml) {
    plist_t root = nullptr;
    plist_from_xml(xml.data(), static_cast<uint32_t>(xml.size()), &root);
    const std::shared_ptr<void> node(root, &plist_free);
    if (!node || plist_get_node_type(root) != PLIST_DICT) return nullptr;
    return New<CFDictionaryMBS>([node](const std::string& key) -> std::optional<std::string> {
        const plist_t value = plist_dict_get_item(node.get(), key.c_str());
        if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) return std::nullopt;
        // plist_get_string_val would end the process at a zero byte in the text.
        const char* text = plist_get_string_ptr(value, nullptr);
        return text == nullptr ? std::nullopt : std::optional<std::string>(text);
    });
}

Ref<CFDictionaryMBS> FromBinary(const std::string& bytes) {
    BinaryPropertyList list(bytes);
    if (!list.IsDictionary()) return nullptr;
    return New<CFDictionaryMBS>(
        [list = std::move(list)](const std::string& key) { return list.Text(key); });
}

}  // namespace

Ref<CFStringMBS> CFDictionaryMBS::Lookup(const CFStringMBS& key) const {
    std::optional<std::string> text = lookup_(key.Text());
    return text ? New<CFStringMBS>(*std::move(text)) : nullptr;
}

std::string CFDictionaryMBS::Text(const std::string& key) const {
    const Ref<CFStringMBS> text = Lookup(*CoreFoundationGlobalsMBS::NewCFStringMBS(key));
    return text ? text->Text() : std::string();
}

namespace CoreFoundationGlobalsMBS {

Ref<CFBinaryDataMBS> NewCFBinaryDataMBSStr(std::string bytes) {
    return New<CFBinaryDataMBS>(std::move(bytes));
}

Ref<CFDictionaryMBS> NewCFObjectMBSFromXML(const Ref<CFBinaryDataMBS>& data) {
    const std::string& bytes = data->Bytes;
    if (bytes.empty() || bytes.size() > kPropertyListLimit) return nullptr;
    return BinaryPropertyList::HasSignature(bytes) ? FromBinary(bytes) : FromXml(XmlInUtf8(bytes));
}

Ref<CFStringMBS> NewCFStringMBS(std::string text) {
    return New<CFStringMBS>(std::move(text));
}

}  // namespace CoreFoundationGlobalsMBS

std::string ReadPropertyListFile(const std::string& path) {
    int error = 0;
    const FileDescriptor file = OpenRegularFile(path, error);
    if (!file) return {};
    struct stat status {};
    if (fstat(file.Get(), &status) != 0) return {};
    const auto size = static_cast<size_t>(status.st_size);
    if (size > kPropertyListLimit) return {};
    std::string bytes(size, '\0');
    const ssize_t count = ReadFully(file.Get(), bytes.data(), bytes.size());
    bytes.resize(count > 0 ? static_cast<size_t>(count) : 0);
    return bytes;
}

}  // namespace dunvey
