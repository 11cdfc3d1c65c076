#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/values/reference.h"

namespace dunvey {

/// The largest property list that is parsed, in bytes; real ones have a few thousand. A million
/// nested arrays overflow libplist's stack; the 37,000 that fit into this limit use a quarter of
/// the usual 8 MiB.
inline constexpr size_t kPropertyListLimit = 256 * 1024;

/// Bytes as a data object.
class CFBinaryDataMBS {
 public:
    explicit CFBinaryDataMBS(std::string bytes) : Bytes(std::move(bytes)) {}
    const std::string Bytes;
};

/// A text value or a key.
class CFStringMBS {
 public:
    explicit CFStringMBS(std::string text) : text_(std::move(text)) {}
    const std::string& Text() const { return text_; }

 private:
    std::string text_;
};

/// The dictionary that is the top value of a property list.
class CFDictionaryMBS {
 public:
    /// Returns the text under a key; nullopt if there is none or the value is no text.
    using TextLookup = std::function<std::optional<std::string>(const std::string& key)>;

    explicit CFDictionaryMBS(TextLookup lookup) : lookup_(std::move(lookup)) {}
    /// The value under the key as text; nil if there is none, or it is no text.
    Ref<CFStringMBS> Lookup(const CFStringMBS& key) const;
    /// The text under the key; empty if there is none.
    std::string Text(const std::string& key) const;

 private:
    TextLookup lookup_;
};

namespace CoreFoundationGlobalsMBS {

Ref<CFBinaryDataMBS> NewCFBinaryDataMBSStr(std::string bytes);

/// Parses a property list, XML (UTF-8 or UTF-16) or binary. Nil for bytes that don't parse, for
/// more than kPropertyListLimit of them, and if the top value is no dictionary.
Ref<CFDictionaryMBS> NewCFObjectMBSFromXML(const Ref<CFBinaryDataMBS>& data);

Ref<CFStringMBS> NewCFStringMBS(std::string text);

}  // namespace CoreFoundationGlobalsMBS

/// The bytes of the property list in a file; empty if it is missing, no regular file, unreadable or
/// larger than kPropertyListLimit. Never waits for a FIFO.
std::string ReadPropertyListFile(const std::string& path);

}  // namespace dunvey
