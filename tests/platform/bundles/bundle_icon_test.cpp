#include "platform/bundles/bundle_icon.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace dunvey {
namespace {

class BundleIcon : public ::testing::Test {
 protected:
    void PropertyList(const std::string& icon) {
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

    test::TemporaryFolder folder_;
};

TEST_F(BundleIcon, IsTheOneThePropertyListNamesElseTheFirst) {
    EXPECT_EQ(Found(), "") << "no bundle at all";
    Resource("readme.txt");
    EXPECT_EQ(Found(), "");
    Resource("Zebra.icns");
    Resource("Main.ICNS");
    folder_.MakeFolder("A.app/Contents/Resources/A folder.icns");
    ASSERT_EQ(symlink("nowhere", (folder_ / "A.app/Contents/Resources/Gone.icns").c_str()), 0);
    EXPECT_EQ(Found(), "Main.ICNS");
    Resource("Named.icns");
    for (const char* name : {"Named", "Named.icns"}) {
        PropertyList(name);
        EXPECT_EQ(Found(), "Named.icns") << name;
    }
    Resource("odd.image");
    PropertyList("odd.image");
    EXPECT_EQ(Found(), "odd.image");
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
    EXPECT_EQ(Found(), "Main.ICNS") << "a FIFO blocks nobody";
}

}  // namespace
}  // namespace dunvey
