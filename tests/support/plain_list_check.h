#pragma once

#include <plist/plist.h>

#include <cstdlib>
#include <string>

#include "platform/bundles/plain_property_list.h"

namespace dunvey::test {

/// Whether the list says under that key what the library's dictionary says there.
inline bool SaysTheSame(const PlainPropertyList& list, plist_t dictionary, const char* key) {
    const auto own = list.Text(key);
    const plist_t value = plist_dict_get_item(dictionary, key);
    const bool isText = value != nullptr && plist_get_node_type(value) == PLIST_STRING;
    if (!isText) return !own;
    return own && *own == plist_get_string_ptr(value, nullptr);
}

/// Whether the bytes are no plain property list, or the library takes them for the same one.
inline bool IsSoundIfPlain(std::string_view bytes) {
    const auto list = PlainPropertyList::Read(bytes);
    if (!list) return true;
    plist_t node = nullptr;
    plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &node);
    if (node == nullptr) return false;
    bool isSame = plist_get_node_type(node) == PLIST_DICT && !list->Text("none such");
    plist_dict_iter place = nullptr;
    if (isSame) plist_dict_new_iter(node, &place);
    while (isSame) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, place, &key, &value);
        if (value == nullptr) break;
        isSame = SaysTheSame(*list, node, key);
        std::free(key);
    }
    std::free(place);
    plist_free(node);
    return isSame;
}

}  // namespace dunvey::test
