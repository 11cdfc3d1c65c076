#include "platform/bundles/property_list.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>
#include <vector>

#include "platform/text/encoding.h"
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
    EXPECT_EQ(Look(Xml("<dict><key>k</key><string>8.0.1</string></dict>")), "8.0.1");
    EXPECT_EQ(Look(Xml("<dict><key>k</key><string>a &amp; \u65e5</string></dict>")), "a & \u65e5");
    EXPECT_EQ(Look(Xml("<dict><key>k</key><string/></dict>")), "");
    EXPECT_EQ(Look(Xml("<dict><key>k</key><integer>8</integer></dict>")), "none");
    EXPECT_EQ(Look(Xml("<dict><key>K</key><string>x</string></dict>")), "none");
    EXPECT_EQ(Look(Xml("<dict/>")), "none");
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
    EXPECT_EQ(Look(Binary({"d10102", "516b", "53392e32"})), "9.2");
    EXPECT_EQ(Look(Binary({"df100101"
                           "02",
                           "5f1001"
                           "6b",
                           "6265e56728"})),
              "\u65e5\u6728")
        << "long counts and UTF-16";
    EXPECT_EQ(Look(Binary({"d2010302"
                           "04",
                           "5178", "5179", "516b", "62d83dde00"})),
              "\U0001F600");
    EXPECT_EQ(Look(Binary({"d10102", "516b", "61d83d"})), "\uFFFD");
    EXPECT_EQ(Look(Binary({"d10102", "516b", "1008"})), "none") << "a number";
    EXPECT_EQ(Look(Binary({"d10102", "516b", "d0"})), "none");
    EXPECT_EQ(Look(Binary({"d0"})), "none");
    EXPECT_EQ(Look(Binary({"a0"})), "nil") << "an array on top";
    EXPECT_EQ(Look(Binary({"d10100", "516b"})), "none") << "itself as its value";
    EXPECT_EQ(Look(Binary({"d10909", "516b"})), "none") << "references to nowhere";
    EXPECT_EQ(Look(Binary({"df13ffffffffffffffff01", "516b"})), "nil") << "a count beyond all";
    EXPECT_EQ(Look(Binary({"d10102", "516b", "5f13ffffffffffffffff"})), "none");
    EXPECT_EQ(Look(Binary({"d10102", "516b", "5f1f01"})), "none");
}

// Each level refers twice to the next one: all values built would be 2 to the power of 60.
TEST(PropertyList, ABinaryListThatRepeatsItsValuesIsRead) {
    std::vector<std::string> objects = {
        "d2010302"
        "04",
        "516b", "53392e32", "5178"};
    const auto reference = [](size_t i) {
        char text[3];
        snprintf(text, sizeof text, "%02x", static_cast<unsigned>(i));
        return std::string(text);
    };
    for (size_t i = 4; i < 64; ++i)
        objects.push_back("a2" + reference(i + 1) + reference(i + 1));
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
        for (size_t i = 0; i < levels; ++i)
            list += open;
        for (size_t i = 0; i < levels; ++i)
            list += close;
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
