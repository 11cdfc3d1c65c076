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
    const TranslationTable table = ReadTranslationTable(bytes);
    size_t size = 0;
    for (const auto& [key, text] : table)
        size += key.size() + text.size() + 6;
    Check(size <= bytes.size(), "a table is no larger than its text");

    const std::string row = "\"a key\" = \"a text\";";
    const TranslationTable first = ReadTranslationTable(row + "\n" + std::string(bytes));
    Check(first.contains("a key"), "a row before the input is read");
    if (bytes.find("/*") == bytes.npos) {
        const TranslationTable last = ReadTranslationTable(std::string(bytes) + "\n" + row);
        Check(last.contains("a key") && last.at("a key") == "a text", "the last row counts");
    }
    const std::string_view half = bytes.substr(0, bytes.size() / 2);
    const TranslationTable written = ReadTranslationTable(
        Quoted(half) + "/* \" */=// ;\n" + Quoted(bytes) + "\r\n\t;" + Quoted("next") + "=\"\";");
    Check(written.contains(std::string(half)) && written.contains("next"), "each row is read");
    Check(half == "next" || written.at(std::string(half)) == bytes, "a text reads as written");
}

}  // namespace dunvey::fuzz
