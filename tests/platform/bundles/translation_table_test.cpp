#include "platform/bundles/translation_table.h"

#include <gtest/gtest.h>

namespace dunvey {
namespace {

TEST(TranslationTable, ReadsRowsCommentsAndEscapes) {
    const TranslationTable table = ReadTranslationTable(
        "\xEF\xBB\xBF/* a comment\n over lines */ \"a\" = \"1\";\n"
        "// \"no\" = \"row\";\n"
        "\"b\"=\"say \\\"x\\\" \\\\ \\n\\t\";\"c\"\n=\n\"3\"\n;\n"
        "\"a\" = \"later\"; \"// d\" = \"/* not a comment */\";\r\n\"\" = \"\";");
    const TranslationTable expected = {{"a", "later"},
                                       {"b", "say \"x\" \\ \n\t"},
                                       {"c", "3"},
                                       {"// d", "/* not a comment */"},
                                       {"", ""}};
    EXPECT_EQ(table, expected);
}

}  // namespace
}  // namespace dunvey
