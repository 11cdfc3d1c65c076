#pragma once

#include <string>
#include <string_view>

#include "platform/values/reference.h"

namespace dunvey {

/// The largest property list that is parsed, in bytes. A million nested arrays crash the library;
/// the lists of real applications have a few kilobytes.
inline constexpr size_t kPropertyListLimit = 256 * 1024;

/// Bytes as a data object.
class CFBinaryDataMBS {
 public:
    explicit CFBinaryDataMBS(std::string bytes) : Bytes(std::move(bytes)) {}
    const std::string Bytes;
};

/// Any value of a property list.
class CFObjectMBS {
 public:
    virtual ~CFObjectMBS() = default;
};

/// A text value or a key.
class CFStringMBS final : public CFObjectMBS {
 public:
    explicit CFStringMBS(std::string text) : text_(std::move(text)) {}
    const std::string& Text() const { return text_; }

 private:
    std::string text_;
};

/// A dictionary of a property list.
class CFDictionaryMBS : public CFObjectMBS {
 public:
    /// The value under the key as text; nil if there is none or it is no text.
    virtual Ref<CFStringMBS> Lookup(const CFStringMBS& key) const = 0;
};

namespace CoreFoundationGlobalsMBS {

Ref<CFBinaryDataMBS> NewCFBinaryDataMBSStr(std::string bytes);

/// Parses a property list, XML or binary. Nil for bytes that don't parse, that are more than
/// kPropertyListLimit, or whose top value is no dictionary.
Ref<CFDictionaryMBS> NewCFObjectMBSFromXML(const Ref<CFBinaryDataMBS>& data);

Ref<CFStringMBS> NewCFStringMBS(std::string text);

}  // namespace CoreFoundationGlobalsMBS
}  // namespace dunvey
