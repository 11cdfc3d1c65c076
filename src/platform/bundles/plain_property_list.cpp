#include "platform/bundles/plain_property_list.h"

#include <algorithm>

namespace dunvey {

class PlainPropertyList::Reader {
 public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    /// Each step returns whether it found what it names and moves behind that.
    bool List(std::vector<Entry>& entries) {
        return Heading() && Take(R"(<plist version="1.0">)") && Take("<dict>") &&
               Dictionary(0, &entries) && Take("</plist>") && IsAtEnd();
    }

 private:
    /// More levels are left to a reader that doesn't call itself for each.
    static constexpr int kMostLevels = 32;

    bool Heading() {
        Take(R"(<?xml version="1.0" encoding="UTF-8"?>)");
        if (!Take("<!DOCTYPE plist ")) return true;
        const size_t end = rest_.find_first_of("<>[");
        if (end == rest_.npos || rest_[end] != '>') return false;
        const bool isQuoted = std::count(rest_.begin(), rest_.begin() + end, '"') % 2 != 0;
        rest_.remove_prefix(end + 1);
        return !isQuoted;
    }

    bool Dictionary(int level, std::vector<Entry>* entries) {
        while (!Take("</dict>")) {
            Entry entry;
            if (!Take("<key>") || !Text("</key>", entry.key)) return false;
            if (!Value(level, entry.text)) return false;
            if (entries != nullptr) entries->push_back(entry);
        }
        return true;
    }
    bool Array(int level) {
        std::optional<std::string_view> text;
        while (!Take("</array>"))
            if (!Value(level, text)) return false;
        return true;
    }
    bool Value(int level, std::optional<std::string_view>& text) {
        if (Take("<string>")) return Text("</string>", text.emplace());
        if (Take("<true/>") || Take("<false/>")) return true;
        if (Take("<integer>")) return Integer();
        if (level == kMostLevels) return false;
        if (Take("<array>")) return Array(level + 1);
        return Take("<dict>") && Dictionary(level + 1, nullptr);
    }
    bool Integer() {
        constexpr size_t kMostDigits = 18;
        const size_t count = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        rest_.remove_prefix(count);
        return count > 0 && count <= kMostDigits && TakeHere("</integer>");
    }
    /// A text that stands for itself, and the tag behind it. An empty one is left to others.
    bool Text(std::string_view closing, std::string_view& text) {
        text = rest_.substr(0, rest_.find_first_of("<&"));
        rest_.remove_prefix(text.size());
        return !text.empty() && TakeHere(closing);
    }

    /// Blanks, then the part. Without the part the blanks are skipped all the same.
    bool Take(std::string_view part) {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size()));
        return TakeHere(part);
    }
    bool TakeHere(std::string_view part) {
        if (!rest_.starts_with(part)) return false;
        rest_.remove_prefix(part.size());
        return true;
    }
    bool IsAtEnd() { return Take("") && rest_.empty(); }

    std::string_view rest_;
};

std::optional<PlainPropertyList> PlainPropertyList::Read(std::string_view bytes) {
    // Others take a zero byte for the end.
    if (bytes.find('\0') != bytes.npos) return std::nullopt;
    PlainPropertyList list;
    if (!Reader(bytes).List(list.entries_)) return std::nullopt;
    return list;
}

std::optional<std::string_view> PlainPropertyList::Text(std::string_view key) const {
    const auto entry = std::find_if(entries_.rbegin(), entries_.rend(),
                                    [key](const Entry& each) { return each.key == key; });
    return entry == entries_.rend() ? std::nullopt : entry->text;
}

}  // namespace dunvey
