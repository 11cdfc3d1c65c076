#include "icons/icon.h"

#include <gtest/gtest.h>

#include "desktop/scripted_desktop.h"
#include "platform/pictures/native_image.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

class IconTest : public ::testing::Test {
 protected:
    IconTest() { Desktop::Install(std::make_unique<headless::ScriptedDesktop>()); }
    ~IconTest() override { Desktop::Install(nullptr); }

    /// It has a bitmap of the image for 1 and one for 2 pixels each point.
    static void ExpectTwoResolutions(const Ref<Picture>& picture, const Ref<NSImage>& image,
                                     int64_t size) {
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->Width(), size);
        EXPECT_EQ(picture->Height(), size);
        for (const int64_t scale : {1, 2}) {
            const Bitmap& bitmap = picture->PixelsFor(static_cast<double>(scale));
            const int64_t side = size * scale;
            EXPECT_EQ(bitmap.Width, side);
            EXPECT_EQ(bitmap.Height, side);
            EXPECT_EQ(bitmap.Pixels, image->CGImageForProposedRect({0, 0, side, side}).Pixels);
        }
        EXPECT_EQ(picture->PixelsFor(3).Width, size * 2);
    }

    test::TemporaryFolder folder_;
};

TEST_F(IconTest, AFilesIconHasTwoResolutions) {
    const std::string path = folder_.Write("a.indd", "x");
    for (const int64_t size : {1, 16, 128}) {
        ExpectTwoResolutions(Icon::Get(New<FolderItem>(path), size),
                             Desktop::Current().IconForFile(path), size);
    }
    const std::string other = folder_.MakeFolder("b.app");
    ExpectTwoResolutions(Icon::Get(New<FolderItem>(other), 16),
                         Desktop::Current().IconForFile(other), 16);
}

TEST_F(IconTest, NothingHasNoIcon) {
    EXPECT_FALSE(Icon::Get(nullptr, 16));
    const auto item = New<FolderItem>(folder_.Write("a.indd", "x"));
    EXPECT_TRUE(Icon::Get(item, 16));
    unlink(item->NativePath().c_str());
    EXPECT_FALSE(Icon::Get(item, 16)) << "it vanished";
    ASSERT_EQ(symlink("a.indd", (folder_ / "link").c_str()), 0);
    EXPECT_FALSE(Icon::Get(New<FolderItem>(folder_ / "link"), 16));
}

TEST_F(IconTest, TypesHaveIconsAndCautionIsOneOfThem) {
    ExpectTwoResolutions(Icon::GetForFileType("indd", 32),
                         Desktop::Current().IconForFileType("indd"), 32);
    ExpectTwoResolutions(Icon::GetAlertCaution(16), Desktop::Current().IconForFileType("'caut'"),
                         16);
}

TEST(CGContext, AnImageOutsideTheContextIsCutOff) {
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
