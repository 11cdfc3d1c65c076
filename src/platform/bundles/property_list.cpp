#include "platform/bundles/property_list.h"

#include <plist/plist.h>

#include <cstdint>
#include <optional>
#include <utility>

#include "platform/bundles/binary_property_list.h"
#include "platform/bundles/plain_property_list.h"

namespace dunvey {

namespace {

/// Out of a plain XML form. It stands in the bytes.
class PlainDictionary final : public CFDictionaryMBS {
 public:
    PlainDictionary(Ref<CFBinaryDataMBS> data, PlainPropertyList list)
        : data_(std::move(data)), list_(std::move(list)) {}

    Ref<CFStringMBS> Lookup(const CFStringMBS& key) const override {
        const auto text = list_.Text(key.Text());
        return text ? New<CFStringMBS>(std::string(*text)) : nullptr;
    }

 private:
    Ref<CFBinaryDataMBS> data_;
    PlainPropertyList list_;
};

/// Out of the XML form. Holds libplist's dictionary node and frees it in the end.
class XmlDictionary final : public CFDictionaryMBS {
 public:
    explicit XmlDictionary(plist_t node) : node_(node) {}
    ~XmlDictionary() override { plist_free(node_); }
    XmlDictionary(const XmlDictionary&) = delete;
    XmlDictionary& operator=(const XmlDictionary&) = delete;

    Ref<CFStringMBS> Lookup(const CFStringMBS& key) const override {
        plist_t value = plist_dict_get_item(node_, key.Text().c_str());
        if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) return nullptr;
        // A zero byte ends the text. The library's call that copies it would end the process.
        const char* text = plist_get_string_ptr(value, nullptr);
        return text == nullptr ? nullptr : New<CFStringMBS>(text);
    }

 private:
    plist_t node_;
};

class BinaryDictionary final : public CFDictionaryMBS {
 public:
    explicit BinaryDictionary(BinaryPropertyList list) : list_(std::move(list)) {}

    Ref<CFStringMBS> Lookup(const CFStringMBS& key) const override {
        std::optional<std::string> text = list_.Text(key.Text());
        return text ? New<CFStringMBS>(std::move(*text)) : nullptr;
    }

 private:
    BinaryPropertyList list_;
};

Ref<CFDictionaryMBS> FromBinary(const std::string& bytes) {
    BinaryPropertyList list(bytes);
    return list.IsDictionary() ? New<BinaryDictionary>(std::move(list)) : Ref<BinaryDictionary>();
}

Ref<CFDictionaryMBS> FromXml(const Ref<CFBinaryDataMBS>& data) {
    const std::string& bytes = data->Bytes;
    if (std::optional<PlainPropertyList> list = PlainPropertyList::Read(bytes)) {
        return New<PlainDictionary>(data, std::move(*list));
    }
    plist_t node = nullptr;
    plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &node);
    if (node == nullptr) return nullptr;
    if (plist_get_node_type(node) != PLIST_DICT) {
        plist_free(node);
        return nullptr;
    }
    return New<XmlDictionary>(node);
}

}  // namespace

namespace CoreFoundationGlobalsMBS {

Ref<CFBinaryDataMBS> NewCFBinaryDataMBSStr(std::string bytes) {
    return New<CFBinaryDataMBS>(std::move(bytes));
}

Ref<CFDictionaryMBS> NewCFObjectMBSFromXML(const Ref<CFBinaryDataMBS>& data) {
    const std::string& bytes = data->Bytes;
    if (bytes.empty() || bytes.size() > kPropertyListLimit) return nullptr;
    return IsBinaryPropertyList(bytes) ? FromBinary(bytes) : FromXml(data);
}

Ref<CFStringMBS> NewCFStringMBS(std::string text) {
    return New<CFStringMBS>(std::move(text));
}

}  // namespace CoreFoundationGlobalsMBS
}  // namespace dunvey
