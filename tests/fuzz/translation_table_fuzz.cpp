#include "fuzz/fuzz.h"
#include "platform/bundles/translation_table.h"

namespace dunvey::fuzz {
namespace {

/// The text between quotes, with the escapes that it needs.
std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c == '\n' ? "\\n" : std::string(1, c);
    }
    return quoted + "\"";
}

}  // namespace

void TryInput(std::string_view bytes) {
    const TranslationTable table =
        ReadTranslationTable("\"a key\" = \"a text\";\n" + std::string(bytes));
    Check(table.contains("a key"), "a row before the input is read");
    size_t size = 0;
    for (const auto& [key, text] : table)
        size += key.size() + text.size() + 6;
    Check(size <= bytes.size() + 30, "a table is no larger than its text");
    const std::string_view half = bytes.substr(0, bytes.size() / 2);
    const TranslationTable written = ReadTranslationTable(
        Quoted(half) + "/* \" */=// ;\n" + Quoted(bytes) + "\r\n\t;" + Quoted("next") + "=\"\";");
    Check(written.contains(std::string(half)) && written.contains("next"), "each row is read");
    Check(half == "next" || written.at(std::string(half)) == bytes, "a text reads as written");
}

}  // namespace dunvey::fuzz
