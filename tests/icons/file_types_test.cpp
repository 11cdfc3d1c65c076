#include <gtest/gtest.h>

#include <string>

#include "icons/file_types1.h"

namespace dunvey {
namespace {

TEST(FileTypes, AreCreatedInTheirOrder) {
    ASSERT_TRUE(FileTypes1::pAllFileTypes.empty());
    FileTypes1::_Initialize();
    ASSERT_EQ(FileTypes1::pAllFileTypes.size(), 26U);
    EXPECT_EQ(FileTypes1::pAllFileTypes.front(), FileTypes1::ID30_Document_Icon());
    EXPECT_EQ(FileTypes1::pAllFileTypes[15], FileTypes1::UnknownDocument());
    EXPECT_EQ(FileTypes1::pAllFileTypes.back(), FileTypes1::ID_Book_Icon());
    for (const Ref<FileType>& type : FileTypes1::pAllFileTypes) {
        EXPECT_TRUE(type->Imported) << type->Name;
        EXPECT_EQ(type->UTI, type->MacType.empty() ? "public.data" : "") << type->Name;
        EXPECT_EQ(type->Extensions + type->MacCreator + type->MimeType + type->ConformsTo, "");
    }
}

}  // namespace
}  // namespace dunvey
