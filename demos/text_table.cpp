#include "text_table.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cwchar>

namespace dunvey::demo {
namespace {

/// The number of columns that a terminal needs for the text.
size_t Width(const std::string& text) {
    size_t width = 0;
    std::mbstate_t state{};
    for (size_t i = 0; i < text.size();) {
        wchar_t character = 0;
        const size_t size = std::mbrtowc(&character, &text[i], text.size() - i, &state);
        const bool isBroken = size == 0 || size > text.size() - i;
        if (isBroken) state = {};
        width += isBroken ? 1 : static_cast<size_t>(std::max(0, wcwidth(character)));
        i += isBroken ? 1 : size;
    }
    return width;
}

void PrintRow(const std::vector<std::string>& cells, const std::vector<size_t>& widths) {
    std::string line;
    for (size_t i = 0; i < cells.size(); ++i) {
        line += cells[i];
        if (i + 1 < cells.size()) line.append(widths[i] - Width(cells[i]) + 2, ' ');
    }
    std::printf("%s\n", line.c_str());
}

}  // namespace

void PrintTable(const std::vector<std::vector<std::string>>& rows) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::vector<size_t> widths;
    for (const std::vector<std::string>& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    }
    std::vector<std::string> rule;
    for (const size_t width : widths)
        rule.emplace_back(width, '-');
    for (size_t i = 0; i < rows.size(); ++i) {
        PrintRow(rows[i], widths);
        if (i == 0) PrintRow(rule, widths);
    }
}

std::string OneLine(std::string text) {
    for (char& byte : text) {
        if ((byte >= 0 && byte < ' ') || byte == '\x7f') byte = '?';
    }
    return text;
}

}  // namespace dunvey::demo
