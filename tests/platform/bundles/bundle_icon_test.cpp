#include "platform/bundles/bundle_icon.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace dunvey {
namespace {

class BundleIcon : public ::testing::Test {
 protected:
    BundleIcon() { folder_.MakeFolder("A.app/Contents/Resources/A folder.icns"); }

    void PropertyList(const std::string& icon) const {
        folder_.Write("A.app/Contents/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleIconFile</key><string>" + icon +
                          "</string></dict></plist>");
    }
    std::string Resource(const std::string& name) const {
        return folder_.Write("A.app/Contents/Resources/" + name, "x");
    }
    std::string Found() const { return BundleIconPath(FolderItem(folder_ / "A.app")); }

    const test::TemporaryFolder folder_;
};

TEST_F(BundleIcon, IsTheOneThePropertyListNamesElseTheFirst) {
    EXPECT_EQ(BundleIconPath(FolderItem(folder_ / "missing.app")), "");
    Resource("readme.txt");
    ASSERT_EQ(symlink("nowhere", (folder_ / "A.app/Contents/Resources/Gone.icns").c_str()), 0);
    EXPECT_EQ(Found(), "");
    Resource("Zebra.icns");
    const std::string first = Resource("Main.ICNS");
    EXPECT_EQ(Found(), first);
    const std::string named = Resource("Named.icns");
    const std::string odd = Resource("odd.image");
    folder_.Write("outside.icns", "x");
    const std::pair<const char*, std::string> cases[] = {
        {"Named", named},   {"Named.icns", named},
        {"odd.image", odd}, {"", first},
        {"missing", first}, {"A folder.icns", first},
        {"../..", first},   {"../../../outside.icns", first}};
    for (const auto& [name, found] : cases) {
        PropertyList(name);
        EXPECT_EQ(Found(), found) << name;
    }
}

}  // namespace
}  // namespace dunvey
