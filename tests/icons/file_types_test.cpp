#include <gtest/gtest.h>

#include <set>
#include <string>

#include "icons/file_types1.h"

namespace dunvey {
namespace {

std::string AllMacTypes() {
    std::string all;
    for (const Ref<FileType>& type : FileTypes1::pAllFileTypes)
        all += type->MacType + " ";
    return all;
}

TEST(FileTypesTest, RowsAreMadeOnceAndInTheirOrder) {
    ASSERT_TRUE(FileTypes1::pAllFileTypes.empty());
    ASSERT_FALSE(FileTypes1::ID30_Document_Icon());
    FileTypes1::_Initialize();
    ASSERT_EQ(FileTypes1::pAllFileTypes.size(), 26U);
    EXPECT_EQ(AllMacTypes(),
              "IDd3 IDd4 IDd5 IDd6 InDd IDd7 IDb3 IDb4 IDb5 IDb6 IDb7 IDd2 IDb2 IDd8 IDb8  IDd9 "
              "IDb9 IDdX IDbX IDdB IDbB IDdC IDbC IDdD IDbD ");
    EXPECT_EQ(FileTypes1::pAllFileTypes.front(), FileTypes1::ID30_Document_Icon());
    EXPECT_EQ(FileTypes1::pAllFileTypes[4], FileTypes1::ID20_Document_Icon());
    EXPECT_EQ(FileTypes1::pAllFileTypes[15], FileTypes1::UnknownDocument());
    EXPECT_EQ(FileTypes1::pAllFileTypes.back(), FileTypes1::ID_Book_Icon());

    std::multiset<std::string> names;
    std::set<std::string> macTypes;
    for (const Ref<FileType>& type : FileTypes1::pAllFileTypes) {
        EXPECT_TRUE(type->Imported) << type->Name;
        EXPECT_EQ(type->UTI, type->MacType.empty() ? "public.data" : "") << type->Name;
        EXPECT_EQ(type->Extensions + type->MacCreator + type->MimeType + type->ConformsTo, "");
        macTypes.insert(type->MacType);
        names.insert(type->Name);
        if (!type->MacType.starts_with("ID")) continue;
        // Which kind it is, the third letter says, and the name at its end.
        EXPECT_TRUE(type->Name.ends_with(type->MacType[2] == 'b' ? " Book" : " Document"))
            << type->Name;
        EXPECT_TRUE(type->Name.starts_with("InDesign\xC2\xAE ")) << type->Name;
    }
    EXPECT_EQ(macTypes.size(), 26U);
    EXPECT_EQ(names.count("InDesign\xC2\xAE Document"), 2U);
    // Neighbours of one version bear one name but for the kind.
    for (const char* version : {"CS", "CS2", "CS3", "CS4", "CS5", "CS5.5", "CS6", "CC", "CC 2014",
                                "CC 2015", "CC 2017"}) {
        const std::string name = std::string("InDesign\xC2\xAE ") + version;
        EXPECT_EQ(names.count(name + " Document") + names.count(name + " Book"), 2U) << name;
    }
}

}  // namespace
}  // namespace dunvey
