#include "platform/pictures/icon_family.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/bundles/bundle_icon.h"
#include "support/icon_file.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using namespace test;

const std::string kPng = "\x89PNG\r\n\x1A\n";
const std::string kJpeg = std::string("\0\0\0\x0CjP  \r\n\x87\n", 12) + std::string(400, 'j');

/// Stands for the toolkit: a "PNG" is its mark, a letter for "ok", and the size as one byte.
Ref<Bitmap> DecodeStandIn(std::string_view bytes) {
    if (bytes.size() < kPng.size() + 2 || bytes[kPng.size()] != 'o') return nullptr;
    const int64_t side = static_cast<uint8_t>(bytes[kPng.size() + 1]);
    return New<Bitmap>(
        Bitmap{side, side, std::vector<uint32_t>(static_cast<size_t>(side * side), 0xFF0000FF)});
}

std::string Png(int side) {
    return kPng + "o" + static_cast<char>(side);
}

class IconFile : public ::testing::Test {
 protected:
    Ref<Bitmap> Image(const std::string& bytes, int64_t pixels) {
        return IconFamily(folder_.Write("a.icns", bytes)).Image(pixels, &DecodeStandIn);
    }
    /// The width of the picture; 0 if there is none.
    int64_t Side(const std::string& bytes, int64_t pixels) {
        const Ref<Bitmap> image = Image(bytes, pixels);
        return image ? image->Width : 0;
    }
    /// The first pixel; 0 if there is no picture.
    uint32_t Pixel(const std::string& bytes, int64_t pixels) {
        const Ref<Bitmap> image = Image(bytes, pixels);
        return image ? image->Pixels.at(0) : 0;
    }

    TemporaryFolder folder_;
};

TEST_F(IconFile, ThePictureThatFitsBestIsTaken) {
    const std::string file = test::IconFile(
        {IconPart("TOC ", std::string(40, 't')), IconPart("ic07", Png(128)),
         IconPart("ic04", PlainArgb(16, 255, 1, 2, 3)), IconPart("icnV", "abcd"),
         IconPart("ic12", Png(64)), IconPart("ic11", Png(32)), IconPart("name", "")});
    for (const auto& [asked, side] : {std::pair{1, 16},
                                      {16, 16},
                                      {17, 32},
                                      {32, 32},
                                      {33, 64},
                                      {64, 64},
                                      {65, 128},
                                      {128, 128},
                                      {129, 128},
                                      {9999, 128}}) {
        EXPECT_EQ(Side(file, asked), side) << asked;
    }
    // Nothing is large enough: the largest, whatever the order in the file.
    EXPECT_EQ(Side(test::IconFile({IconPart("ic11", Png(32)), IconPart("ic12", Png(64)),
                                   IconPart("ic04", PlainArgb(16, 255, 1, 2, 3))}),
                   500),
              64);
}

TEST_F(IconFile, APictureThatCantBeUsedGivesWayToTheNextBest) {
    const std::string small = IconPart("ic04", PlainArgb(16, 255, 1, 2, 3));
    const std::string large = IconPart("ic08", Png(200));
    for (const std::string& broken :
         {kJpeg, std::string("\xFF\x4F\xFF\x51 stream"), kPng + "broken", std::string(),
          std::string("ARGB"), "ARGB" + Packed(500, 7), std::string(3000, '\xFF')}) {
        const std::string part = IconPart("ic05", broken);
        EXPECT_EQ(Side(test::IconFile({small, part, large}), 32), 200) << broken.substr(0, 9);
        EXPECT_EQ(Side(test::IconFile({small, part}), 32), 16) << broken.substr(0, 9);
        EXPECT_EQ(Side(test::IconFile({part}), 32), 0) << broken.substr(0, 9);
    }
    // Two parts of one type: the second one may be the good one.
    EXPECT_EQ(Side(test::IconFile({IconPart("ic07", kJpeg), IconPart("ic07", Png(128))}), 99), 128);
}

TEST_F(IconFile, AllCodingsGiveTheirColours) {
    struct Case {
        std::string name;
        std::vector<std::string> parts;
        int64_t side;
        uint32_t pixel;
    };
    const std::string raw =
        std::string(256, '\x10') + std::string(256, '\x20') + std::string(256, '\x30');
    const Case cases[] = {
        {"no mask", {IconPart("is32", PlainColors(16, 9, 8, 7))}, 16, 0xFF090807},
        {"a mask",
         {IconPart("l8mk", std::string(1024, '\x33')),
          IconPart("il32", PlainColors(32, 255, 5, 0))},
         32,
         0x33330100},
        {"another size's mask",
         {IconPart("l8mk", std::string(1024, '\x33')), IconPart("is32", PlainColors(16, 1, 1, 1))},
         16,
         0xFF010101},
        {"48 pixels",
         {IconPart("ih32", PlainColors(48, 4, 5, 6)), IconPart("h8mk", std::string(2304, '\xFF'))},
         48,
         0xFF040506},
        {"128 pixels",
         {IconPart("it32", std::string(4, '\0') + PlainColors(128, 4, 5, 6)),
          IconPart("t8mk", std::string(16384, '\xFF'))},
         128,
         0xFF040506},
        {"not packed", {IconPart("is32", raw)}, 16, 0xFF102030},
        {"channels in a later type", {IconPart("icp4", PlainColors(16, 1, 2, 3))}, 16, 0xFF010203},
        {"bytes behind the last channel",
         {IconPart("is32", PlainColors(16, 1, 2, 3) + std::string(2, '\0'))},
         16,
         0xFF010203},
        {"a mask that is too short",
         {IconPart("is32", PlainColors(16, 1, 2, 3)), IconPart("s8mk", std::string(255, '\xFF'))},
         0,
         0},
        {"a run beyond the end", {IconPart("is32", Packed(3 * 256 + 130, 5))}, 0, 0},
        {"a channel too few", {IconPart("is32", Packed(2 * 256, 5))}, 0, 0},
        {"a last byte without its value", {IconPart("is32", Packed(767, 5) + "\x85")}, 0, 0},
        {"a literal beyond the part", {IconPart("is32", Packed(700, 5) + "\x40zz")}, 0, 0},
    };
    for (const Case& each : cases) {
        const std::string file = test::IconFile(each.parts);
        EXPECT_EQ(Side(file, each.side), each.side) << each.name;
        EXPECT_EQ(Pixel(file, 16), each.pixel) << each.name;
    }
}

TEST_F(IconFile, LengthsThatLieEndTheList) {
    const std::string good = IconPart("ic04", PlainArgb(16, 255, 1, 2, 3));
    const std::string png = IconPart("ic11", Png(32));
    for (const size_t length : {0u, 1u, 7u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        const std::string lie = "ic07" + BigEndian(length) + Png(128);
        EXPECT_EQ(Side(test::IconFile({good, lie, png}), 128), 16) << length;
        // The whole file's own length may be too large, never too small.
        const std::string file = "icns" + BigEndian(length) + good + png;
        EXPECT_EQ(Side(file, 32), length > 7 ? 32 : 0) << length;
    }
    // The mask's length belongs to the mask alone.
    EXPECT_EQ(Side(test::IconFile({IconPart("is32", PlainColors(16, 1, 2, 3)),
                                   "s8mk" + BigEndian(0xFFFFFFFF) + std::string(256, '\xFF')}),
                   16),
              16);
}

TEST_F(IconFile, HugeCountsAndSizesAreBounded) {
    std::vector<std::string> parts(kIconPartCount, IconPart("junk", ""));
    parts.push_back(IconPart("ic11", Png(32)));
    EXPECT_EQ(Side(test::IconFile(parts), 32), 0) << "a part beyond the limit of the count";
    parts.erase(parts.begin());
    EXPECT_EQ(Side(test::IconFile(parts), 32), 32);

    const std::string path = folder_.Write("a.icns", test::IconFile({IconPart("ic11", Png(32))}));
    ASSERT_EQ(truncate(path.c_str(), kIconFileLimit), 0);
    EXPECT_TRUE(IconFamily(path).Image(32, &DecodeStandIn));
    ASSERT_EQ(truncate(path.c_str(), kIconFileLimit + 1), 0);
    EXPECT_FALSE(IconFamily(path).Image(32, &DecodeStandIn));

    // A part that is all there, and too large.
    const size_t length = static_cast<size_t>(kIconPartLimit) + 1;
    const std::string large = "icns" + BigEndian(8 + 8 + length) + "ic11" + BigEndian(8 + length);
    folder_.Write("a.icns", large + Png(32));
    ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(16 + length)), 0);
    EXPECT_FALSE(IconFamily(path).Image(32, &DecodeStandIn));
}

class BundleIcon : public ::testing::Test {
 protected:
    void PropertyList(const std::string& icon) {
        folder_.MakeFolder("A.app/Contents/Resources");
        folder_.Write("A.app/Contents/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleIconFile</key><string>" + icon +
                          "</string></dict></plist>");
    }
    void Resource(const std::string& name) {
        folder_.MakeFolder("A.app/Contents/Resources");
        folder_.Write("A.app/Contents/Resources/" + name, "x");
    }
    std::string Found() const {
        const std::string path = BundleIconPath(FolderItem(folder_ / "A.app"));
        const std::string start = folder_ / "A.app/Contents/Resources/";
        return path.starts_with(start) ? path.substr(start.size()) : path;
    }

    TemporaryFolder folder_;
};

TEST_F(BundleIcon, ThePropertyListNamesItElseTheFirstOneCounts) {
    EXPECT_EQ(Found(), "") << "no bundle at all";
    Resource("readme.txt");
    EXPECT_EQ(Found(), "");
    Resource("Zebra.icns");
    Resource("Main.ICNS");
    folder_.MakeFolder("A.app/Contents/Resources/A folder.icns");
    EXPECT_EQ(Found(), "Main.ICNS");
    Resource("Named.icns");
    for (const char* name : {"Named", "Named.icns"}) {
        PropertyList(name);
        EXPECT_EQ(Found(), "Named.icns") << name;
    }
    Resource("odd.picture");
    PropertyList("odd.picture");
    EXPECT_EQ(Found(), "odd.picture");
    folder_.Write("outside.icns", "x");
    for (const char* name : {"", "missing", "A folder.icns", "../../../outside.icns", "../.."}) {
        PropertyList(name);
        EXPECT_EQ(Found(), "Main.ICNS") << name;
    }
    for (const std::string& list :
         {std::string("no list"), std::string(), std::string(300'000, 'x')}) {
        folder_.Write("A.app/Contents/Info.plist", list);
        EXPECT_EQ(Found(), "Main.ICNS") << list.substr(0, 9);
    }
    unlink((folder_ / "A.app/Contents/Info.plist").c_str());
    ASSERT_EQ(mkfifo((folder_ / "A.app/Contents/Info.plist").c_str(), 0600), 0);
    EXPECT_EQ(Found(), "Main.ICNS") << "a FIFO makes nobody wait";
}

}  // namespace
}  // namespace dunvey
