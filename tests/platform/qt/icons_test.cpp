#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QBuffer>
#include <QIcon>
#include <QStyle>
#include <random>

#include "platform/qt/qt_bitmap.h"
#include "platform/qt/qt_icon_drawing.h"
#include "platform/qt/qt_icons.h"
#include "support/icon_file.h"
#include "support/own_resources.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::IconFile;
using test::IconPart;

constexpr uint32_t kRed = 0xFFFF0000;
constexpr uint32_t kGreen = 0xFF00FF00;
constexpr uint32_t kBlue = 0xFF0000FF;

std::string Png(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return bytes.toStdString();
}

std::string Png(int width, int height, uint32_t color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return Png(image);
}

/// A picture that can't be packed well.
std::string NoisePng(int side) {
    QImage image(side, side, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, static_cast<uint32_t>(random()) | 0xFF000000u);
    return Png(image);
}

Bitmap Render(const Ref<NSImage>& image, int64_t width, int64_t height) {
    return image->CGImageForProposedRect({0, 0, width, height})();
}

uint32_t Middle(const Bitmap& bitmap) {
    return bitmap.Pixels.at(
        static_cast<size_t>(bitmap.Height / 2 * bitmap.Width + bitmap.Width / 2));
}

std::vector<uint32_t> Drawn(IconDrawing drawing) {
    return BitmapOf(DrawIcon(drawing, QSize(16, 16))).Pixels;
}

class Icons : public ::testing::Test {
 protected:
    Icons() {
        before_ = QIcon::themeSearchPaths();
        QIcon::setThemeSearchPaths({QString::fromStdString(folder_.Path())});
        UseTheme("none");
    }
    ~Icons() override {
        QIcon::setThemeSearchPaths(before_);
        QIcon::setThemeName(name_);
    }

    static void UseTheme(const char* name) { QIcon::setThemeName(QLatin1String(name)); }
    /// A theme in which these names have a blue picture of 16 by 16.
    void MakeTheme(const std::vector<std::string>& names) {
        folder_.MakeFolder("blue/16");
        folder_.Write("blue/index.theme",
                      "[Icon Theme]\nName=blue\nDirectories=16\n[16]\nSize=16\nType=Fixed\n");
        for (const std::string& name : names)
            folder_.Write("blue/16/" + name + ".png", Png(16, 16, kBlue));
        UseTheme("blue");
    }

    std::string App(const std::string& icon) {
        folder_.MakeFolder("A.app/Contents/Resources");
        folder_.Write("A.app/Contents/Resources/Main.icns", icon);
        return folder_ / "A.app";
    }
    static std::vector<uint32_t> Pixels(const std::string& path) {
        return Render(QtIconForFile(path), 16, 16).Pixels;
    }
    static uint32_t MiddleOf(const std::string& path) {
        return Middle(Render(QtIconForFile(path), 16, 16));
    }

    test::TemporaryFolder folder_;
    test::OwnResources resources_;
    QStringList before_;
    QString name_ = QIcon::themeName();
};

TEST_F(Icons, ABundlesPictureIsTakenAtTheSizeThatFits) {
    const Ref<NSImage> image =
        QtIconForFile(App(IconFile({IconPart("ic11", Png(32, 32, kGreen)),
                                    IconPart("ic04", test::PlainArgb(16, 255, 255, 0, 0)),
                                    IconPart("ic07", Png(128, 128, kBlue))})));
    for (const auto& [size, color] :
         {std::pair{16, kRed}, {32, kGreen}, {20, kGreen}, {128, kBlue}, {300, kBlue}, {1, kRed}}) {
        const Bitmap bitmap = Render(image, size, size);
        EXPECT_EQ(bitmap.Width, size);
        EXPECT_EQ(bitmap.Height, size);
        EXPECT_EQ(bitmap.Pixels, std::vector<uint32_t>(static_cast<size_t>(size * size), color))
            << size;
    }
    EXPECT_TRUE(Render(image, 0, 0).Pixels.empty());
}

TEST_F(Icons, APictureKeepsItsAspectAndStandsInTheMiddle) {
    const std::string path = App(IconFile({IconPart("ic07", Png(40, 20, kRed))}));
    const Bitmap wide = Render(QtIconForFile(path), 16, 16);
    for (int64_t row = 0; row < 16; ++row) {
        const bool inside = row >= 4 && row < 12;
        EXPECT_EQ(wide.Pixels[static_cast<size_t>(row * 16 + 8)], inside ? kRed : 0u) << row;
    }
    const Bitmap thin =
        Render(QtIconForFile(App(IconFile({IconPart("ic07", Png(2000, 1, kRed))}))), 16, 16);
    EXPECT_EQ(thin.Width, 16);
    EXPECT_EQ(Middle(thin) | thin.Pixels[7 * 16 + 8], kRed) << "not scaled away";
}

TEST_F(Icons, AnUnusablePictureGivesWay) {
    const std::string good = IconPart("ic13", Png(256, 256, kGreen));
    const std::string png = Png(64, 64, kRed);
    for (const std::string& broken :
         {Png(2049, 1, kRed), Png(1, 2049, kRed), png.substr(0, png.size() / 2), png.substr(0, 20),
          Png(64, 64, 0)}) {
        const std::string part = IconPart("ic12", broken);
        const bool isBlank = broken == Png(64, 64, 0);
        EXPECT_EQ(Middle(Render(QtIconForFile(App(IconFile({part, good}))), 64, 64)) == kGreen,
                  !isBlank);
        EXPECT_EQ(Pixels(App(IconFile({part}))), Drawn(IconDrawing::Application));
    }
}

TEST_F(Icons, APictureIsUnpackedLateAndAsItWasWhenItWasAskedFor) {
    const std::string large = NoisePng(256);
    ASSERT_GT(large.size(), 64u * 1024) << "too much to be kept packed";
    for (const std::string& png : {Png(64, 64, kRed), large}) {
        const std::string path = App(IconFile({IconPart("ic12", png)}));
        const Ref<NSImage> image = QtIconForFile(path);
        const CGImage late = image->CGImageForProposedRect({0, 0, 64, 64});
        const Bitmap before = Render(image, 64, 64);
        App("something else");
        EXPECT_EQ(late().Pixels, before.Pixels);
        EXPECT_EQ(Pixels(path), Drawn(IconDrawing::Application));
    }
}

#ifndef DUNVEY_SANITIZED
TEST_F(Icons, NoMoreIsKeptOfALargePictureThanIsShown) {
    const Ref<NSImage> image = QtIconForFile(App(IconFile({IconPart("ic09", NoisePng(512))})));
    std::vector<CGImage> kept;
    const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    const size_t before = used();
    for (int i = 0; i < 10; ++i)
        kept.push_back(image->CGImageForProposedRect({0, 0, 16, 16}));
    EXPECT_LT(used(), before + 512 * 512 * 4 * 2) << "the picture itself, and it once more";
}
#endif

TEST_F(Icons, ABundleWithoutAUsableIconIsAProgramAllTheSame) {
    const std::string path = App("no icon file");
    EXPECT_EQ(Pixels(path), Drawn(IconDrawing::Application));
    const std::string icon = path + "/Contents/Resources/Main.icns";
    unlink(icon.c_str());
    EXPECT_EQ(Pixels(path), Drawn(IconDrawing::Application));
    ASSERT_EQ(mkfifo(icon.c_str(), 0600), 0);
    EXPECT_EQ(Pixels(path), Drawn(IconDrawing::Application));
    MakeTheme({"application-x-executable"});
    EXPECT_EQ(MiddleOf(path), kBlue);
}

TEST_F(Icons, ADocumentHasTheImportedIconElseTheThemesElseAPage) {
    const std::string names[] = {"a.indd", "b.INDT", "c.x.indl", "d.indb"};
    for (const std::string& name : names)
        EXPECT_EQ(Pixels(folder_.Write(name, "x")), Drawn(IconDrawing::Page)) << name;
    resources_.Write("ID_Document_Icon.icns", IconFile({IconPart("ic07", Png(64, 64, kRed))}));
    resources_.Write("ID_Book_Icon.icns", IconFile({IconPart("ic07", Png(64, 64, kGreen))}));
    for (const std::string& name : names)
        EXPECT_EQ(MiddleOf(folder_ / name), name == "d.indb" ? kGreen : kRed) << name;
    EXPECT_EQ(Middle(Render(QtIconForFileType("indb"), 16, 16)), kGreen);
    EXPECT_EQ(Pixels(folder_.Write("e.xyz", "x")), Drawn(IconDrawing::Page));
    EXPECT_EQ(Pixels(folder_.MakeFolder("f.indd")), Drawn(IconDrawing::Folder));
    resources_.Write("ID_Document_Icon.icns", "cut sho");
    EXPECT_EQ(Pixels(folder_ / "a.indd"), Drawn(IconDrawing::Page));
}

TEST_F(Icons, OtherFilesFoldersAndTypesAskTheTheme) {
    const std::string text = folder_.Write("a.txt", "x");
    const std::string folder = folder_.MakeFolder("folder");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Pixels(text), Drawn(IconDrawing::Page));
    EXPECT_EQ(Pixels(folder), Drawn(IconDrawing::Folder));
    EXPECT_EQ(Pixels(folder_ / "pipe"), Drawn(IconDrawing::Page));
    for (const char* type : {"txt", "'APPL'", "", "a/b", "\xFF"})
        EXPECT_EQ(Render(QtIconForFileType(type), 16, 16).Pixels, Drawn(IconDrawing::Page)) << type;
    MakeTheme({"text-x-generic", "folder"});
    EXPECT_EQ(MiddleOf(text), kBlue) << "by the type's generic name";
    EXPECT_EQ(MiddleOf(folder), kBlue);
    EXPECT_EQ(Middle(Render(QtIconForFileType("txt"), 32, 32)), kBlue);
    EXPECT_EQ(Pixels(folder_ / "pipe"), Drawn(IconDrawing::Page));
}

TEST_F(Icons, CautionIsASignInEverySize) {
    for (const int64_t size : {16, 32, 64, 256}) {
        EXPECT_NE(Middle(Render(QtIconForFileType("'caut'"), size, size)), 0u) << size;
    }
}

}  // namespace
}  // namespace dunvey
