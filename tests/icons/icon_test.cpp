#include "icons/icon.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "desktop/scripted_desktop.h"
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

}  // namespace
}  // namespace dunvey
