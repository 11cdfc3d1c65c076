#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/bundles/bundle_icon.h"
#include "platform/bundles/translation_table.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

class BundleIcon : public ::testing::Test {
 protected:
    BundleIcon() { folder_.MakeFolder("A.app/Contents/Resources/A folder.icns"); }

    void PropertyList(const std::string& icon) const {
        folder_.Write("A.app/Contents/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleIconFile</key><string>" + icon +
                          "</string></dict></plist>");
    }
    std::string Resource(const std::string& name) const {
        return folder_.Write("A.app/Contents/Resources/" + name, "x");
    }
    std::string Found() const { return BundleIconPath(FolderItem(folder_ / "A.app")); }

    const test::TemporaryFolder folder_;
};

TEST_F(BundleIcon, IsTheOneThePropertyListNamesElseTheFirst) {
    EXPECT_EQ(BundleIconPath(FolderItem(folder_ / "missing.app")), "");
    Resource("readme.txt");
    ASSERT_EQ(symlink("nowhere", (folder_ / "A.app/Contents/Resources/Gone.icns").c_str()), 0);
    EXPECT_EQ(Found(), "");
    Resource("Zebra.icns");
    const std::string first = Resource("Main.ICNS");
    EXPECT_EQ(Found(), first);
    const std::string named = Resource("Named.icns");
    const std::string odd = Resource("odd.image");
    folder_.Write("outside.icns", "x");
    const std::pair<const char*, std::string> cases[] = {
        {"Named", named},   {"Named.icns", named},
        {"odd.image", odd}, {"", first},
        {"missing", first}, {"A folder.icns", first},
        {"../..", first},   {"../../../outside.icns", first}};
    for (const auto& [name, found] : cases) {
        PropertyList(name);
        EXPECT_EQ(Found(), found) << name;
    }
}

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
