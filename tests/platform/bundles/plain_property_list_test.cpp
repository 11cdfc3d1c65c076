#include "platform/bundles/plain_property_list.h"

#include <gtest/gtest.h>

#include "support/plain_list_check.h"

namespace dunvey {
namespace {

const std::string kHeading =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//A//DTD PLIST 1.0//EN\" \"http://a.b/P-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

/// As applications have them.
const std::string kReal = kHeading +
                          "<dict>\n"
                          "\t<key>A</key>\n\t<string>a > b, \u65e5\n c </string>\n"
                          "\t<key>Kinds</key>\n\t<array>\n\t\t<dict>\n"
                          "\t\t\t<key>A</key>\n\t\t\t<string>inner</string>\n"
                          "\t\t\t<key>Codes</key><array><string>x</string><array></array></array>\n"
                          "\t\t</dict>\n\t</array>\r\n"
                          "\t<key>Whole</key>\n\t<integer>900719925474099</integer>\n"
                          "\t<key>Yes</key>\n\t<true/>\n\t<key>No</key>\n\t<false/>\n"
                          "\t<key>B</key>\n\t<string>first</string>\n"
                          "\t<key>C</key>\n\t<string>text</string>\n"
                          "\t<key>B</key>\n\t<string>last</string>\n"
                          "\t<key>C</key>\n\t<true/>\n"
                          "</dict>\n</plist>\n";

std::string Text(const std::string& bytes, const char* key) {
    const auto list = PlainPropertyList::Read(bytes);
    if (!list) return "not plain";
    return std::string(list->Text(key).value_or("none"));
}

TEST(PlainPropertyListTest, GivesTheTextsOfTheOutermostDictionary) {
    EXPECT_EQ(Text(kReal, "A"), "a > b, \u65e5\n c ");
    EXPECT_EQ(Text(kReal, "B"), "last");
    for (const char* key : {"C", "Kinds", "Codes", "Whole", "Yes", "", "a"})
        EXPECT_EQ(Text(kReal, key), "none") << key;
}

TEST(PlainPropertyListTest, LeavesWhatIsNotPlainToOthers) {
    const std::string key = "<key>A</key>";
    std::string nested;
    for (int i = 0; i < 40; ++i)
        nested = "<array>" + nested + "</array>";
    for (const char* value :
         {"<string>a &amp; b</string>", "<string><![CDATA[a]]></string>", "<string></string>",
          "<string/>", "<string >a</string>", "<!-- a --><string>a</string>", "<array/>", "<dict/>",
          "<real>1.5</real>", "<date>2000-01-01T00:00:00Z</date>", "<data>QQ==</data>",
          "<integer>-1</integer>", "<integer>1234567890123456789</integer>", "<integer/>", "text",
          nested.c_str()}) {
        EXPECT_EQ(Text(kHeading + "<dict>" + key + value + "</dict></plist>", "A"), "not plain")
            << value;
    }
    const std::string dictionary = "<dict>" + key + "<string>a</string></dict>";
    for (const std::string& bytes :
         {std::string(), dictionary, "<plist>" + dictionary + "</plist>",
          kHeading + dictionary + "</plist>x", kHeading + dictionary + dictionary + "</plist>",
          kHeading + dictionary + "</plist>" + std::string(1, '\0'),
          kHeading + "<array></array></plist>", kHeading + "<dict>" + key + "</dict></plist>",
          "\xEF\xBB\xBF" + kHeading + dictionary + "</plist>",
          "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist version=\"1.0\">" + dictionary +
              "</plist>"}) {
        EXPECT_EQ(Text(bytes, "A"), "not plain") << bytes;
    }
    EXPECT_EQ(Text(kHeading + dictionary + "</plist>", "A"), "a");
    EXPECT_EQ(Text("<plist version=\"1.0\">" + dictionary + "</plist>", "A"), "a");
}

TEST(PlainPropertyListTest, WhatItTakesTheLibraryTakesForTheSame) {
    EXPECT_TRUE(test::IsSoundIfPlain(kReal));
    for (size_t place = 0; place < kReal.size(); ++place) {
        EXPECT_TRUE(test::IsSoundIfPlain(kReal.substr(0, place))) << place;
        EXPECT_TRUE(test::IsSoundIfPlain(std::string(kReal).erase(place, 1))) << place;
        for (const char byte : std::string("<>/&![ \n\t\r\"A0\0\xFF\x01", 16))
            EXPECT_TRUE(test::IsSoundIfPlain(std::string(kReal).replace(place, 1, 1, byte)))
                << place << " " << byte;
    }
}

}  // namespace
}  // namespace dunvey
