#pragma once

#include <string>
#include <vector>

namespace dunvey::demo {

/// Prints rows of cells, UTF-8, in columns on standard output, under the first row as a heading.
void PrintTable(const std::vector<std::vector<std::string>>& rows);

/// The text on one line: control characters become "?".
std::string OneLine(std::string text);

}  // namespace dunvey::demo
