#include <cstdio>
#include <map>

#include "fuzz/fuzz.h"
#include "platform/text/translation_table.h"

namespace dunvey::fuzz {
namespace {

/// The text between quotes, with the escapes that it takes.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '\n') {
            quoted += "\\n";
        } else if (static_cast<uint8_t>(c) < ' ') {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\U%04x", static_cast<unsigned>(c));
            quoted += escape;
        } else {
            if (c == '"' || c == '\\') quoted += '\\';
            quoted += c;
        }
    }
    return quoted + "\"";
}

/// The text of a row that stands alone on its line, plain and without escapes: its key.
std::string PlainKey(std::string_view line) {
    constexpr std::string_view kMiddle = "\" = \"";
    constexpr std::string_view kEnd = "\";";
    const size_t middle = line.find(kMiddle);
    if (!line.starts_with('"') || middle == line.npos || !line.ends_with(kEnd)) return {};
    if (line.size() < middle + kMiddle.size() + kEnd.size()) return {};
    const std::string_view key = line.substr(1, middle - 1);
    const size_t begin = middle + kMiddle.size();
    const std::string_view text = line.substr(begin, line.size() - kEnd.size() - begin);
    const bool plain =
        key.find_first_of("\"\\") == key.npos && text.find_first_of("\"\\") == text.npos;
    return plain ? std::string(key) : std::string();
}

/// Whatever stands around it, a row on a line of its own is read.
void CheckPlainRows(std::string_view bytes, const TranslationTable& table) {
    for (size_t begin = 0; begin < bytes.size();) {
        const size_t end = std::min(bytes.find('\n', begin), bytes.size());
        const std::string key = PlainKey(bytes.substr(begin, end - begin));
        Check(key.empty() || table.contains(key), "a sound row is read", key);
        begin = end + 1;
    }
}

/// A table made of the input's pieces reads as those pieces.
void CheckWritten(std::string_view bytes) {
    std::map<std::string, std::string> written;
    std::string text;
    Input input(bytes);
    while (!input.IsAtEnd()) {
        std::string pair[2];
        for (std::string& piece : pair) {
            for (size_t length = input.Below(32); length > 0; --length)
                piece += static_cast<char>(input.Byte());
        }
        static constexpr const char* kBetween[] = {" ", "\n", "\r\n\t", "/* \" */", "// \" = ;\n"};
        const auto blank = [&input] { return kBetween[input.Below(std::size(kBetween))]; };
        text +=
            Quoted(pair[0]) + blank() + "=" + blank() + Quoted(pair[1]) + blank() + ";" + blank();
        written[pair[0]] = pair[1];
    }
    const TranslationTable table = ReadTranslationTable(text);
    Check(std::map<std::string, std::string>(table.begin(), table.end()) == written,
          "a table reads as it was written", text);
}

}  // namespace

void TryInput(std::string_view bytes) {
    const TranslationTable table = ReadTranslationTable(bytes);
    size_t taken = 0;
    for (const auto& [key, text] : table)
        taken += key.size() + text.size() + 6;
    Check(taken <= bytes.size(), "a table is no larger than its text");

    const std::string row = "\"a key\" = \"a text\";";
    Check(ReadTranslationTable(row + "\n" + std::string(bytes)).contains("a key"),
          "the first row is read");
    if (bytes.find("/*") == bytes.npos) {
        CheckPlainRows(bytes, table);
        const TranslationTable longer = ReadTranslationTable(std::string(bytes) + "\n" + row);
        const auto last = longer.find("a key");
        Check(last != longer.end() && last->second == "a text", "the last row is read and counts");
    }
    CheckWritten(bytes);
}

}  // namespace dunvey::fuzz
