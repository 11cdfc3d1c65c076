#include "platform/files/folder_item.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "support/hostile_names.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

/// The words as a shell reads them.
std::vector<std::string> WordsThroughShell(const std::string& shell, const std::string& words) {
    const TemporaryFolder folder;
    const std::string script = folder.Write("script", "printf '%s\\0' " + words + "\n");
    FILE* pipe = popen((shell + " " + script).c_str(), "r");
    std::vector<std::string> read(1);
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) {
        if (c != 0) read.back() += static_cast<char>(c);
        if (c == 0) read.emplace_back();
    }
    pclose(pipe);
    read.pop_back();
    return read;
}

TEST(FolderItem, ShellPathIsOneWordForEveryName) {
    std::vector<std::string> paths;
    std::string words;
    for (const std::string& name : test::HostileNames()) {
        const FolderItem item("/folder of mine/" + name);
        paths.push_back(item.NativePath());
        words += item.ShellPath() + " ";
    }
    for (const char* shell : {"/bin/sh", "/bin/bash", "LC_ALL=C /bin/bash", "/bin/bash --posix"}) {
        EXPECT_EQ(WordsThroughShell(shell, words), paths) << shell;
    }
    EXPECT_EQ(FolderItem("/Applications/Adobe InDesign CS6").ShellPath(),
              "/Applications/Adobe\\ InDesign\\ CS6");
    EXPECT_EQ(ShellWord(""), "''");
}

TEST(FolderItem, PathsAreAbsoluteAndTidy) {
    EXPECT_EQ(FolderItem("/a//b/./c/").NativePath(), "/a/b/c");
    for (const char* path : {"/a/../b", "/"})
        EXPECT_EQ(FolderItem(path).NativePath(), path);
    EXPECT_FALSE(FolderItem("/").Parent());
    EXPECT_EQ(FolderItem("/a").Parent()->NativePath(), "/");
    EXPECT_EQ(FolderItem("/a").Child("b c")->NativePath(), "/a/b c");
    EXPECT_EQ(FolderItem("/a/Layout.indd").Name(), "Layout.indd");
    char here[4096];
    ASSERT_NE(getcwd(here, sizeof here), nullptr);
    EXPECT_EQ(FolderItem("-x.indd").NativePath(), std::string(here) + "/-x.indd");
}

TEST(FolderItem, EntriesComeInNameOrderAndLinksAreNotFollowed) {
    const TemporaryFolder folder;
    folder.MakeFolder("b/inner");
    folder.MakeFolder("to");
    folder.Write("C", "");
    const std::pair<const char*, const char*> links[] = {
        {"d", "b"}, {"e", "nowhere"}, {"f", "b/inner"}};
    for (const auto& [name, target] : links)
        ASSERT_EQ(symlink(target, (folder / name).c_str()), 0);
    const FolderItem item(folder.Path());
    const FolderItem to(folder / "to");
    ASSERT_EQ(item.Count(), 6);
    std::string names;
    for (int64_t i = 1; i <= 6; ++i)
        names += item.TrueItem(i)->Name();
    EXPECT_EQ(names, "Cbdefto");
    EXPECT_FALSE(item.TrueItem(0));
    EXPECT_FALSE(item.TrueItem(7));
    EXPECT_TRUE(item.TrueItem(2)->Directory());
    EXPECT_TRUE(item.Child("d")->Directory()) << "a link by its name is followed";
    EXPECT_FALSE(item.Child("e")->Exists());
    for (int64_t i = 3; i <= 5; ++i) {
        const Ref<FolderItem> link = item.TrueItem(i);
        EXPECT_TRUE(link->Exists());
        EXPECT_FALSE(link->Directory());
        EXPECT_EQ(link->Count(), 0);
        for (const int error : {0, EEXIST}) {
            link->CopyFileTo(to);
            EXPECT_EQ(link->LastErrorCode(), error);
            EXPECT_FALSE(to.Child(link->Name())->Exists()) << "a link that leads nowhere there";
        }
    }
    EXPECT_EQ(to.Count(), 3);
}

TEST(FolderItem, CountSeesChangesAndAWalkKeepsItsListing) {
    const TemporaryFolder folder;
    const FolderItem item(folder.Path());
    EXPECT_EQ(item.Count(), 0);
    for (int64_t count = 1; count <= 3; ++count) {
        folder.Write("file" + std::to_string(count), "");
        EXPECT_EQ(item.Count(), count);
    }
    EXPECT_TRUE(item.TrueItem(1)->Exists());
    folder.Write("a new first one", "");
    unlink((folder / "file2").c_str());
    EXPECT_EQ(item.Count(), 3) << "a walk has begun";
    EXPECT_FALSE(item.TrueItem(2)->Exists());
    EXPECT_EQ(item.TrueItem(3)->Name(), "file3");
    folder.Write("z", "");
    EXPECT_EQ(item.Count(), 4) << "the walk is over";
    EXPECT_EQ(FolderItem(folder / "none").Count(), 0);
    EXPECT_EQ(FolderItem(folder / "z").Count(), 0);
}

TEST(FolderItem, CopiesMakesAndDeletesWithAnErrorCode) {
    const TemporaryFolder folder;
    const FolderItem source(folder.Write("source", std::string(200'000, 'x')));
    source.CopyFileTo(FolderItem(folder / "copy"));
    EXPECT_EQ(source.LastErrorCode(), 0);
    EXPECT_EQ(folder.Read("copy"), folder.Read("source"));
    source.CopyFileTo(FolderItem(folder / "copy"));
    EXPECT_EQ(source.LastErrorCode(), EEXIST);
    const FolderItem inner(folder / "inner");
    inner.CreateAsFolder();
    EXPECT_EQ(inner.LastErrorCode(), 0);
    source.CopyFileTo(inner);
    EXPECT_EQ(folder.Read("inner/source"), folder.Read("source"));
    inner.Delete();
    EXPECT_EQ(inner.LastErrorCode(), ENOTEMPTY);
    inner.Child("source")->Delete();
    inner.Delete();
    EXPECT_EQ(inner.LastErrorCode(), 0);
    EXPECT_FALSE(inner.Exists());
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    const FolderItem fifo(folder / "fifo");
    fifo.CopyFileTo(FolderItem(folder / "from fifo"));
    EXPECT_EQ(fifo.LastErrorCode(), EINVAL);
    FolderItem(folder / "none").CopyFileTo(FolderItem(folder / "from none"));
    EXPECT_FALSE(FolderItem(folder / "from none").Exists());
}

}  // namespace
}  // namespace dunvey
