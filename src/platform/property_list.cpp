#include "platform/property_list.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace dunvey {

CFDictionaryMBS::CFDictionaryMBS(void* node) : node_(node) {}

CFDictionaryMBS::~CFDictionaryMBS() {
    plist_free(static_cast<plist_t>(node_));
}

Ref<CFStringMBS> CFDictionaryMBS::Lookup(const CFStringMBS& key) const {
    plist_t value = plist_dict_get_item(static_cast<plist_t>(node_), key.Text().c_str());
    if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) return nullptr;
    char* text = nullptr;
    plist_get_string_val(value, &text);
    if (text == nullptr) return nullptr;
    std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
    return New<CFStringMBS>(std::string(text));
}

namespace CoreFoundationGlobalsMBS {

Ref<CFBinaryDataMBS> NewCFBinaryDataMBSStr(std::string bytes) {
    return New<CFBinaryDataMBS>(std::move(bytes));
}

Ref<CFDictionaryMBS> NewCFObjectMBSFromXML(const Ref<CFBinaryDataMBS>& data) {
    const std::string& bytes = data->Bytes;
    if (bytes.empty() || bytes.size() > kPropertyListLimit) return nullptr;
    plist_t node = nullptr;
    plist_from_memory(bytes.data(), static_cast<uint32_t>(bytes.size()), &node);
    if (node == nullptr) return nullptr;
    if (plist_get_node_type(node) != PLIST_DICT) {
        plist_free(node);
        return nullptr;
    }
    return New<CFDictionaryMBS>(static_cast<void*>(node));
}

Ref<CFStringMBS> NewCFStringMBS(std::string text) {
    return New<CFStringMBS>(std::move(text));
}

}  // namespace CoreFoundationGlobalsMBS
}  // namespace dunvey
