#include <gtest/gtest.h>
#include <unistd.h>

#include <utility>
#include <vector>

#include "platform/bundles/bundle_icon.h"
#include "platform/bundles/property_list.h"
#include "platform/bundles/translation_table.h"
#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "support/headers.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

/// The text under the key "k", or "nil" for a refused list, "none" for no text there.
std::string Look(const std::string& bytes) {
    using namespace CoreFoundationGlobalsMBS;
    const Ref<CFDictionaryMBS> list = NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(bytes));
    if (!list) return "nil";
    const Ref<CFStringMBS> text = list->Lookup(*NewCFStringMBS("k"));
    return text ? text->Text() : "none";
}

std::string Xml(const std::string& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + value +
           "</plist>";
}

TEST(PropertyList, GivesTheTextUnderAKey) {
    const std::string list = Xml("<dict><key>k</key><string>8.0.1</string></dict>");
    const std::pair<std::string, const char*> cases[] = {
        {list, "8.0.1"},
        {Xml("<dict><key>k</key><string>a &amp; 日</string></dict>"), "a & 日"},
        {Xml("<dict><key>k</key><string/></dict>"), ""},
        {Xml("<dict><key>k</key><integer>8</integer></dict>"), "none"},
        {Xml("<dict><key>K</key><string>x</string></dict>"), "none"},
        {Xml("<dict></dict>"), "none"},
        {Xml("<array/>"), "nil"},
        {Xml("<string>k</string>"), "nil"},
        {Xml("<dict><key>k</key>"), "nil"},
        {"", "nil"},
        {"<", "nil"},
        {"<plist>", "nil"},
        {"bplist00", "nil"},
        {"not a list at all", "nil"},
        {std::string(100, '\0'), "nil"},
        {list + std::string(300 * 1024, ' '), "nil"}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(Look(bytes), text) << bytes.substr(0, 100);
}

TEST(PropertyList, ReadsXmlWithAByteOrderMarkAndInUtf16) {
    const std::string xml = Xml("<dict><key>k</key><string>9 日</string></dict>");
    EXPECT_EQ(Look("\xEF\xBB\xBF" + xml), "9 日");
    const std::string little = ConvertEncoding({xml, Encodings::UTF8}, Encodings::UTF16).Bytes;
    std::string big = little;
    for (size_t i = 0; i < big.size(); i += 2)
        std::swap(big[i], big[i + 1]);
    for (const std::string& bytes : {little, big, "\xFF\xFE" + little, "\xFE\xFF" + big})
        EXPECT_EQ(Look(bytes), "9 日");
    for (const std::string& bytes : {"\xFE\xFF" + little, "\xFF\xFE" + big})
        EXPECT_EQ(Look(bytes), "nil");
}

/// A binary list of these objects, each as hexadecimal text; the first one is on top.
std::string Binary(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += static_cast<char>(bytes.size() >> 8);
        offsets += static_cast<char>(bytes.size());
        bytes += test::Bytes(object);
    }
    const std::string end = {static_cast<char>(bytes.size() >> 8), static_cast<char>(bytes.size())};
    return bytes + offsets + std::string(6, '\0') + "\x02\x01" + std::string(7, '\0') +
           static_cast<char>(objects.size()) + std::string(14, '\0') + end;
}

TEST(PropertyList, ReadsTheBinaryForm) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"d10102", "516b", "53392e32"}, "9.2"},
        // Long counts and UTF-16.
        {{"df10010102", "5f10016b", "6265e56728"}, "日木"},
        {{"d201030204", "5178", "5179", "516b", "62d83dde00"}, "😀"},
        {{"d10102", "516b", "61d83d"}, "\uFFFD"},
        // A number, a dictionary, the list itself, references and counts out of bounds.
        {{"d10102", "516b", "1008"}, "none"},
        {{"d10102", "516b", "d0"}, "none"},
        {{"d10100", "516b"}, "none"},
        {{"d10909", "516b"}, "none"},
        {{"d10102", "516b", "5f13ffffffffffffffff"}, "none"},
        {{"d10102", "516b", "5f1f01"}, "none"},
        {{"df13ffffffffffffffff01", "516b"}, "nil"},
        {{"d0"}, "none"},
        {{"a0"}, "nil"}};
    for (const auto& [objects, text] : cases)
        EXPECT_EQ(Look(Binary(objects)), text) << objects.back();
}

// Each level refers twice to the next one: all values built would be 2 to the power of 60.
TEST(PropertyList, ABinaryListThatRepeatsItsValuesIsRead) {
    std::vector<std::string> objects = {"d201030204", "516b", "53392e32", "5178"};
    for (char next = 5; next <= 64; ++next)
        objects.push_back("a2" + EncodeHex(std::string(2, next)));
    objects.push_back("a0");
    EXPECT_EQ(Look(Binary(objects)), "9.2");
}

TEST(PropertyList, SurvivesNestingAsDeepAsTheSizeLimitAllows) {
    const auto repeated = [](const char* text, int levels) {
        std::string all;
        while (levels-- > 0)
            all += text;
        return all;
    };
    EXPECT_EQ(Look(Xml(repeated("<array>", 37'000))), "nil");
    EXPECT_EQ(Look(Xml(repeated("<dict><key>a</key>", 14'000))), "nil");
    EXPECT_EQ(Look(Xml("<dict><key>k</key><string>8</string><key>a</key>" +
                       repeated("<array>", 17'000) + repeated("</array>", 17'000) + "</dict>")),
              "8");
}

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
    Resource("About.txt");
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
        "\"b\"=\"say \\\"x\\\" \\\\ \\n\\t\\r\";\"c\"\n=\n\"3\"\n;\n"
        "\"a\" = \"later\"; \"// d\" = \"/* not a comment */\";\r\n\"\" = \"\";");
    const TranslationTable expected = {{"a", "later"},
                                       {"b", "say \"x\" \\ \n\t\r"},
                                       {"c", "3"},
                                       {"// d", "/* not a comment */"},
                                       {"", ""}};
    EXPECT_EQ(table, expected);
}

}  // namespace
}  // namespace dunvey
