#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QBuffer>

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

std::string Png(int width, int height, uint32_t color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return bytes.toStdString();
}

Bitmap Render(const Ref<NSImage>& image, int64_t size) {
    return image->CGImageForProposedRect({0, 0, size, size});
}

/// The pixel in the centre.
uint32_t Middle(const Ref<NSImage>& image, int64_t size = 16) {
    return Render(image, size).Pixels.at(static_cast<size_t>(size / 2 * size + size / 2));
}

class Icons : public ::testing::Test {
 protected:
    Icons() { QIcon::setThemeSearchPaths({QString::fromStdString(folder_.Path())}); }
    ~Icons() override {
        QIcon::setThemeSearchPaths(before_);
        QIcon::setThemeName(name_);
    }

    /// An icon theme in which these names have a blue icon.
    void MakeTheme(const std::vector<std::string>& names) {
        folder_.MakeFolder("blue/16");
        folder_.Write("blue/index.theme",
                      "[Icon Theme]\nName=blue\nDirectories=16\n[16]\nSize=16\nType=Fixed\n");
        for (const std::string& name : names)
            folder_.Write("blue/16/" + name + ".png", Png(16, 16, kBlue));
        QIcon::setThemeName(QStringLiteral("blue"));
    }
    std::string App(const std::string& icon) {
        folder_.MakeFolder("A.app/Contents/Resources");
        folder_.Write("A.app/Contents/Resources/Main.icns", icon);
        return folder_ / "A.app";
    }
    static std::vector<uint32_t> Standard(QStyle::StandardPixmap icon) {
        const QImage image = StandardIcon(icon)().pixmap(16, 16).toImage().convertToFormat(
            QImage::Format_ARGB32_Premultiplied);
        const auto* pixels = reinterpret_cast<const uint32_t*>(image.constBits());
        return {pixels, pixels + 16 * 16};
    }

    test::TemporaryFolder folder_;
    test::OwnResources resources_;
    QStringList before_ = QIcon::themeSearchPaths();
    QString name_ = QIcon::themeName();
};

TEST_F(Icons, ABundlesIconIsTheReadablePartThatFitsBest) {
    // Run lengths: 130 and 126 times red 255, then the same of green 0 and blue 0.
    const std::string red("\xFF\xFF\xFB\xFF\xFF\0\xFB\0\xFF\0\xFB\0", 12);
    const std::string small = IconPart("is32", red) + IconPart("s8mk", std::string(256, '\xFF'));
    const Ref<NSImage> image = QtIconForFile(App(
        IconFile({IconPart("ic07", Png(128, 128, kBlue)), IconPart("TOC ", "x"),
                  IconPart("ic11", Png(32, 32, kGreen)), small, IconPart("icp6", "\0\0\0jP")})));
    for (const auto& [size, color] :
         {std::pair{1, kRed}, {16, kRed}, {20, kGreen}, {64, kBlue}, {128, kBlue}, {300, kBlue}}) {
        const Bitmap bitmap = Render(image, size);
        EXPECT_EQ(bitmap.Width, size);
        EXPECT_EQ(bitmap.Pixels, std::vector<uint32_t>(static_cast<size_t>(size * size), color));
    }
    const std::string translucent = IconFile({IconPart("ic07", Png(128, 128, 0x80FF0000))});
    EXPECT_EQ(Middle(QtIconForFile(App(translucent)), 128), 0x80800000) << "premultiplied";
}

TEST_F(Icons, ADamagedIconFileGivesWayToTheTheme) {
    MakeTheme({"application-x-executable"});
    const std::string png = Png(64, 64, kRed);
    std::vector<std::string> tooManyParts(64, IconPart("junk", ""));
    tooManyParts.push_back(IconPart("ic12", png));
    for (const std::string& file :
         {std::string(), std::string("no icon file"), IconFile({IconPart("ic12", "")}),
          IconFile(tooManyParts), IconFile({IconPart("ic12", Png(2049, 64, kRed))}),
          IconFile({IconPart("ic12", png.substr(0, 40))}), "icns" + test::BigEndian(0xFFFFFFFF),
          IconFile({"ic12" + test::BigEndian(0x7FFFFFFF) + "x"})}) {
        EXPECT_EQ(Middle(QtIconForFile(App(file)), 64), kBlue) << file.substr(0, 20);
    }
    const std::string icon = App("") + "/Contents/Resources/Main.icns";
    unlink(icon.c_str());
    ASSERT_EQ(mkfifo(icon.c_str(), 0600), 0);
    EXPECT_EQ(Middle(QtIconForFile(folder_ / "A.app")), kBlue) << "a FIFO blocks nobody";
}

TEST_F(Icons, ADocumentHasTheImportedIconElseTheThemesElseAPage) {
    const std::vector<uint32_t> page = Standard(QStyle::SP_FileIcon);
    resources_.Write("ID_Document_Icon.icns", IconFile({IconPart("ic07", Png(64, 64, kRed))}));
    resources_.Write("ID_Book_Icon.icns", IconFile({IconPart("ic07", Png(64, 64, kGreen))}));
    for (const std::string name : {"a.indd", "b.INDT", "c.x.indl", "d.indb"}) {
        EXPECT_EQ(Middle(QtIconForFile(folder_.Write(name, "x"))),
                  name == "d.indb" ? kGreen : kRed);
    }
    EXPECT_EQ(Middle(QtIconForFileType("indb")), kGreen);
    EXPECT_EQ(Render(QtIconForFile(folder_.MakeFolder("f.indd")), 16).Pixels,
              Standard(QStyle::SP_DirIcon));
    for (const char* type : {"txt", "'APPL'", "", "a/b", "\xFF"})
        EXPECT_EQ(Render(QtIconForFileType(type), 16).Pixels, page) << type;
    MakeTheme({"text-x-generic"});
    EXPECT_EQ(Middle(QtIconForFile(folder_.Write("a.txt", "x"))), kBlue);
}

}  // namespace
}  // namespace dunvey
