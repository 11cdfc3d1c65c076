#include <gtest/gtest.h>

#include <string>

#include "icons/file_types1.h"

namespace dunvey {
namespace {

TEST(FileTypes, AreMadeOnceInTheirOrder) {
    ASSERT_TRUE(FileTypes1::pAllFileTypes.empty());
    ASSERT_FALSE(FileTypes1::ID30_Document_Icon());
    FileTypes1::_Initialize();
    ASSERT_EQ(FileTypes1::pAllFileTypes.size(), 26U);
    EXPECT_EQ(FileTypes1::pAllFileTypes.front(), FileTypes1::ID30_Document_Icon());
    EXPECT_EQ(FileTypes1::pAllFileTypes[15], FileTypes1::UnknownDocument());
    EXPECT_EQ(FileTypes1::pAllFileTypes.back(), FileTypes1::ID_Book_Icon());
    EXPECT_EQ(FileTypes1::ID75_Book_Icon()->Name, "InDesign\xC2\xAE CS5.5 Book");

    std::string macTypes;
    for (const Ref<FileType>& type : FileTypes1::pAllFileTypes) {
        macTypes += type->MacType + " ";
        EXPECT_TRUE(type->Imported) << type->Name;
        EXPECT_EQ(type->UTI, type->MacType.empty() ? "public.data" : "") << type->Name;
        EXPECT_EQ(type->Extensions + type->MacCreator + type->MimeType + type->ConformsTo, "");
        if (!type->MacType.starts_with("ID")) continue;
        // The third letter is the kind.
        EXPECT_TRUE(type->Name.ends_with(type->MacType[2] == 'b' ? " Book" : " Document"))
            << type->Name;
    }
    EXPECT_EQ(macTypes,
              "IDd3 IDd4 IDd5 IDd6 InDd IDd7 IDb3 IDb4 IDb5 IDb6 IDb7 IDd2 IDb2 IDd8 IDb8  IDd9 "
              "IDb9 IDdX IDbX IDdB IDbB IDdC IDbC IDdD IDbD ");
}

}  // namespace
}  // namespace dunvey
