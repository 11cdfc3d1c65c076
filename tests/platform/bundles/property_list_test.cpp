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

}  // namespace
}  // namespace dunvey
