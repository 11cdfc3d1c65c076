#include "platform/property_list.h"

#include <gtest/gtest.h>

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
    // {"k": "9.2"} in the binary form.
    EXPECT_EQ(Look("bplist00" + test::Bytes("d1010251"
                                            "6b53392e32"
                                            "080b0d"
                                            "0000000000000101"
                                            "0000000000000003"
                                            "0000000000000000"
                                            "0000000000000011")),
              "9.2");
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

// As deep as the limit of the size lets a list be.
TEST(PropertyList, SurvivesDeepNesting) {
    std::string deep;
    while (deep.size() + 100 < kPropertyListLimit)
        deep += "<array>";
    EXPECT_EQ(Look(Xml(deep)), "nil");
}

}  // namespace
}  // namespace dunvey
