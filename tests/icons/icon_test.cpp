#include "icons/icon.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "desktop/scripted_desktop.h"
#include "icons/file_types1.h"
#include "platform/pictures/native_image.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

/// Expects the image's bitmaps in two resolutions.
void ExpectTwoResolutions(const Ref<Picture>& picture, const Ref<NSImage>& image, int64_t size) {
    EXPECT_EQ(picture->Width(), size);
    EXPECT_EQ(picture->Height(), size);
    for (const auto& [scale, side] : {std::pair{1.0, size}, {2.0, size * 2}, {3.0, size * 2}}) {
        const Bitmap& bitmap = picture->PixelsFor(scale);
        EXPECT_EQ(bitmap.Width, side);
        EXPECT_EQ(bitmap.Height, side);
        EXPECT_EQ(bitmap.Pixels, image->CGImageForProposedRect({0, 0, side, side}).Pixels);
    }
}

TEST(Icon, HasTwoResolutionsAndIsNilForAMissingFile) {
    Desktop::Install(std::make_unique<headless::ScriptedDesktop>());
    Desktop& desktop = Desktop::Current();
    const test::TemporaryFolder folder;
    const std::string path = folder.Write("a.indd", "x");
    const auto item = New<FolderItem>(path);
    for (const int64_t size : {1, 16, 128})
        ExpectTwoResolutions(Icon::Get(item, size), desktop.IconForFile(path), size);
    ExpectTwoResolutions(Icon::GetForFileType("indd", 32), desktop.IconForFileType("indd"), 32);
    ExpectTwoResolutions(Icon::GetAlertCaution(16), desktop.IconForFileType("'caut'"), 16);
    EXPECT_FALSE(Icon::Get(nullptr, 16));
    unlink(path.c_str());
    EXPECT_FALSE(Icon::Get(item, 16));
    Desktop::Install(nullptr);
}

TEST(FileTypes, AreCreatedInTheirOrder) {
    ASSERT_TRUE(FileTypes1::pAllFileTypes.empty());
    FileTypes1::_Initialize();
    ASSERT_EQ(FileTypes1::pAllFileTypes.size(), 26U);
    EXPECT_EQ(FileTypes1::pAllFileTypes.front(), FileTypes1::ID30_Document_Icon());
    EXPECT_EQ(FileTypes1::pAllFileTypes.back(), FileTypes1::ID_Book_Icon());
    for (const Ref<FileType>& type : FileTypes1::pAllFileTypes) {
        EXPECT_TRUE(type->Imported) << type->Name;
        EXPECT_EQ(type->UTI, type->MacType.empty() ? "public.data" : "") << type->Name;
        EXPECT_EQ(type->Extensions + type->MacCreator + type->MimeType + type->ConformsTo, "");
    }
}

TEST(CGContext, ClipsAnImageToTheContext) {
    Bitmap context{3, 2, std::vector<uint32_t>(6)};
    CGContextDrawImage(context, {-1, 1, 3, 2}, {3, 2, {1, 2, 3, 4, 5, 6}});
    EXPECT_EQ(context.Pixels, (std::vector<uint32_t>{0, 0, 0, 2, 3, 0}));
    const std::vector<uint32_t> before = context.Pixels;
    CGContextDrawImage(context, {0, 0, 3, 2}, {});
    CGContextDrawImage(context, {9, -9, 1, 1}, {1, 1, {7}});
    CGContextDrawImage(context, {-9, 9, 1, 1}, {1, 1, {7}});
    EXPECT_EQ(context.Pixels, before);
}

}  // namespace
}  // namespace dunvey
