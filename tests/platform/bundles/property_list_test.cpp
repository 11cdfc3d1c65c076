#include "platform/bundles/property_list.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "support/headers.h"

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
    const std::pair<const char*, const char*> cases[] = {
        {"<key>k</key><string>8.0.1</string>", "8.0.1"},
        {"<key>k</key><string>a &amp; 日</string>", "a & 日"},
        {"<key>k</key><string/>", ""},
        {"<key>k</key><integer>8</integer>", "none"},
        {"<key>K</key><string>x</string>", "none"},
        {"", "none"}};
    for (const auto& [entries, text] : cases)
        EXPECT_EQ(Look(Xml(std::string("<dict>") + entries + "</dict>")), text) << entries;
}

TEST(PropertyList, ReadsXmlWithAByteOrderMarkAndInUtf16) {
    const std::string xml = Xml("<dict><key>k</key><string>9 \u65e5</string></dict>");
    EXPECT_EQ(Look("\xEF\xBB\xBF" + xml), "9 \u65e5");
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF", ""}) {
        for (const bool bigEndian : {false, true}) {
            std::string utf16 = ConvertEncoding({xml, Encodings::UTF8}, Encodings::UTF16).Bytes;
            for (size_t i = 0; bigEndian && i < utf16.size(); i += 2)
                std::swap(utf16[i], utf16[i + 1]);
            const bool markIsRight = *mark == '\0' || bigEndian == (*mark == '\xFE');
            EXPECT_EQ(Look(mark + utf16), markIsRight ? "9 \u65e5" : "nil") << bigEndian;
        }
    }
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
    const auto end = static_cast<char>(bytes.size());
    const auto high = static_cast<char>(bytes.size() >> 8);
    bytes += offsets + std::string(6, '\0') + "\x02\x01" + std::string(7, '\0') +
             static_cast<char>(objects.size()) + std::string(14, '\0') + high + end;
    return bytes;
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

TEST(PropertyList, RefusesWhatIsNone) {
    const std::string kRefused[] = {
        "",
        " ",
        "<",
        "<plist>",
        "bplist00",
        "not a list at all",
        Xml("<array/>"),
        Xml("<string>k</string>"),
        Xml("<dict><key>k</key>"),
        std::string(100, '\0'),
        Xml("<dict><key>k</key><string>x</string></dict>") + std::string(300 * 1024, ' ')};
    for (const std::string& bytes : kRefused)
        EXPECT_EQ(Look(bytes), "nil") << bytes.substr(0, 40);
}

// As deep as the size limit allows.
TEST(PropertyList, SurvivesDeepNesting) {
    const auto nested = [](const std::string& open, const std::string& close) {
        std::string list;
        const size_t levels = (kPropertyListLimit - 200) / (open.size() + close.size());
        for (size_t i = 0; i < 2 * levels; ++i)
            list += i < levels ? open : close;
        return list;
    };
    EXPECT_EQ(Look(Xml(nested("<array>", ""))), "nil");
    EXPECT_EQ(Look(Xml(nested("<dict><key>a</key>", ""))), "nil");
    EXPECT_EQ(Look(Xml("<dict><key>k</key><string>8</string><key>a</key>" +
                       nested("<array>", "</array>") + "</dict>")),
              "8");
}

}  // namespace
}  // namespace dunvey
