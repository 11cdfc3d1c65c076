#include "platform/bundles/translation_table.h"

#include <algorithm>
#include <map>
#include <optional>

#include "platform/bundles/executable_path.h"
#include "platform/bundles/system.h"
#include "platform/files/streams.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// A table has a few kilobytes; more than this isn't read.
constexpr int64_t kSizeLimit = 1 << 20;

class Reader {
 public:
    explicit Reader(std::string_view text) : text_(text) {}

    TranslationTable Read() {
        TranslationTable table;
        for (SkipBlanks(); position_ < text_.size(); SkipBlanks()) {
            const size_t begin = position_;
            if (!ReadRow(table)) SkipLine(begin);
        }
        return table;
    }

 private:
    bool ReadRow(TranslationTable& table) {
        const std::optional<std::string> key = ReadQuoted();
        if (!key || !Take('=')) return false;
        const std::optional<std::string> text = ReadQuoted();
        if (!text || !Take(';')) return false;
        table[*key] = *text;
        return true;
    }

    bool Take(char wanted) {
        SkipBlanks();
        if (position_ >= text_.size() || text_[position_] != wanted) return false;
        ++position_;
        return true;
    }

    /// Skips white space and comments; a comment without an end reaches to the text's end.
    void SkipBlanks() {
        for (;;) {
            position_ = std::min(text_.find_first_not_of(" \t\r\n", position_), text_.size());
            const std::string_view rest = text_.substr(position_);
            if (rest.starts_with("//")) {
                SkipPast("\n");
            } else if (rest.starts_with("/*")) {
                position_ += 2;
                SkipPast("*/");
            } else {
                return;
            }
        }
    }

    void SkipPast(std::string_view end) {
        const size_t found = text_.find(end, position_);
        position_ = found == std::string_view::npos ? text_.size() : found + end.size();
    }

    void SkipLine(size_t begin) {
        position_ = begin;
        SkipPast("\n");
    }

    /// A text in quotes on one line; nothing if there is none or its end is missing.
    std::optional<std::string> ReadQuoted() {
        if (!Take('"')) return std::nullopt;
        std::string quoted;
        while (position_ < text_.size() && text_[position_] != '\n') {
            const char c = text_[position_++];
            if (c == '"') return quoted;
            if (c != '\\') {
                quoted += c;
            } else if (!ReadEscape(quoted)) {
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

    bool ReadEscape(std::string& quoted) {
        if (position_ >= text_.size()) return false;
        const char c = text_[position_++];
        quoted += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
        return std::string_view("nrt\"\\'").find(c) != std::string_view::npos;
    }

    std::string_view text_;
    size_t position_ = 0;
};

std::optional<TranslationTable> LoadTable(const std::string& language) {
    const Ref<FolderItem> file =
        OwnResources()->Child(language + ".lproj")->Child("Localizable.strings");
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(file);
        return ReadTranslationTable(stream->Read(std::min(stream->Length(), kSizeLimit)));
    } catch (const IOException&) {
        return std::nullopt;
    }
}

}  // namespace

TranslationTable ReadTranslationTable(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return Reader(text).Read();
}

const TranslationTable& TranslationsInto(const std::string& language) {
    static std::map<std::string, TranslationTable> tables;
    const auto known = tables.find(language);
    if (known != tables.end()) return known->second;
    // The language comes from the environment: it must not name another folder.
    const bool isName = !language.empty() && language.find('/') == language.npos;
    std::optional<TranslationTable> table = isName ? LoadTable(language) : std::nullopt;
    if (isName && !table) table = LoadTable(NthField(language, "_", 1));
    return tables[language] = std::move(table).value_or(TranslationTable());
}

std::string System::_GetLocalizedString(std::string_view key, std::string_view text,
                                        const std::string& language) {
    const TranslationTable& table = TranslationsInto(language.empty() ? UserLanguage() : language);
    const auto translation = table.find(std::string(key));
    return translation == table.end() ? std::string(text) : translation->second;
}

}  // namespace dunvey
