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

    /// Two bitmaps of the image, the smaller one first.
    static void ExpectTwoResolutions(const Ref<Picture>& picture, const Ref<NSImage>& image,
                                     int64_t size) {
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->Width(), size);
        EXPECT_EQ(picture->Height(), size);
        ASSERT_EQ(picture->Images().size(), 2u);
        for (const int64_t place : {0, 1}) {
            const Bitmap& bitmap = picture->Images()[static_cast<size_t>(place)]->Pixels();
            const int64_t side = size * (place + 1);
            EXPECT_EQ(bitmap.Width, side);
            EXPECT_EQ(bitmap.Height, side);
            EXPECT_EQ(bitmap.Pixels, image->CGImageForProposedRect({0, 0, side, side})().Pixels);
        }
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

TEST(CGContext, ABitmapIsDrawnOverWhatIsThereScaledAndCutOff) {
    Bitmap context{3, 2, std::vector<uint32_t>(6, 0xFF808080)};
    // Opaque red, half transparent black; twice as wide, beginning one pixel outside.
    CGContextDrawImage(context, {-1, 0, 4, 1}, {2, 1, {0xFFFF0000, 0x80000000}});
    EXPECT_EQ(context.Pixels, (std::vector<uint32_t>{0xFFFF0000, 0xFF404040, 0xFF404040, 0xFF808080,
                                                     0xFF808080, 0xFF808080}));
    const std::vector<uint32_t> before = context.Pixels;
    CGContextDrawImage(context, {0, 0, 3, 2}, {});
    CGContextDrawImage(context, {0, 0, 0, 0}, {1, 1, {0xFFFFFFFF}});
    CGContextDrawImage(context, {9, -9, 3, 2}, {1, 1, {0xFFFFFFFF}});
    EXPECT_EQ(context.Pixels, before);
}

}  // namespace
}  // namespace dunvey
