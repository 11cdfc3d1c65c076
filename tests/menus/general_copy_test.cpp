#include <gtest/gtest.h>
#include <sys/stat.h>

#include "menus/general.h"
#include "platform/files/folder_item.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

class CopyFileOrFolder : public ::testing::Test {
 protected:
    bool Copy(const std::string& source, const std::string& destination) {
        return General::CopyFileOrFolder(New<FolderItem>(folder_ / source),
                                         New<FolderItem>(folder_ / destination));
    }
    test::TemporaryFolder folder_;
};

TEST_F(CopyFileOrFolder, CopiesAFolderIntoTheDestinationUntilTheFirstFailure) {
    for (const char* name : {"from/sub/empty", "to", "stopped"})
        folder_.MakeFolder(name);
    for (const char* name : {"from/a", "from/sub/b", "from/z"})
        folder_.Write(name, name);
    EXPECT_TRUE(Copy("from", "to"));
    for (const char* name : {"from/a", "from/sub/b", "from/z"})
        EXPECT_EQ(folder_.Read(std::string("to/") + name), name);
    EXPECT_TRUE(FolderItem(folder_ / "to/from/sub/empty").Directory());
    EXPECT_FALSE(Copy("from", "to")) << "the first file exists";
    EXPECT_FALSE(Copy("from", "missing"));
    EXPECT_FALSE(Copy("from", "from/a")) << "the destination is a file";
    folder_.Write("to/sub", "a file instead of the folder");
    EXPECT_FALSE(Copy("from/sub", "to"));
    ASSERT_EQ(mkfifo((folder_ / "from/m").c_str(), 0600), 0);
    EXPECT_FALSE(Copy("from", "stopped"));
    EXPECT_EQ(folder_.Read("stopped/from/a"), "from/a");
    EXPECT_FALSE(FolderItem(folder_ / "stopped/from/z").Exists());
}

}  // namespace
}  // namespace dunvey
