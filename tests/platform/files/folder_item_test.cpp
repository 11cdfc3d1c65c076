#include "platform/files/folder_item.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/processes/shell.h"
#include "support/hostile_names.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

TEST(FolderItem, ShellPathIsOneWordForEveryName) {
    const TemporaryFolder folder;
    std::string words;
    std::string printed;
    for (const std::string& name : test::HostileNames()) {
        const FolderItem item("/folder of mine/" + name);
        words += " " + item.ShellPath();
        printed += "[" + item.NativePath() + "]";
    }
    const std::string script = folder.Write("script", "printf '[%s]'" + words + "\n");
    for (const char* shell : {"/bin/sh ", "/bin/bash ", "LC_ALL=C /bin/bash ", "bash --posix "}) {
        Shell commands;
        commands.Execute(shell + script);
        EXPECT_EQ(commands.Result(), printed) << shell;
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

TEST(FolderItem, EntriesAreInNameOrderAndLinksAreNotFollowed) {
    const TemporaryFolder folder;
    folder.MakeFolder("b/inner");
    folder.MakeFolder("to");
    folder.Write("C", "");
    const std::pair<const char*, const char*> links[] = {
        {"d", "b"}, {"e", "nowhere"}, {"f", "b/inner"}};
    for (const auto& [name, target] : links)
        ASSERT_EQ(symlink(target, (folder / name).c_str()), 0);
    const FolderItem item(folder.Path());
    std::string names;
    for (int64_t i = 1; i <= item.Count(); ++i)
        names += item.TrueItem(i)->Name();
    EXPECT_EQ(names, "Cbdefto");
    EXPECT_FALSE(item.TrueItem(0));
    EXPECT_FALSE(item.TrueItem(7));
    EXPECT_TRUE(item.TrueItem(2)->Directory());
    EXPECT_TRUE(item.Child("d")->Directory()) << "a link is followed under its name";
    EXPECT_FALSE(item.Child("e")->Exists());
    for (int64_t i = 3; i <= 5; ++i) {
        const Ref<FolderItem> link = item.TrueItem(i);
        EXPECT_TRUE(link->Exists());
        EXPECT_FALSE(link->Directory());
        EXPECT_EQ(link->Count(), 0);
        link->CopyFileTo(FolderItem(folder / "to"));
        EXPECT_EQ(link->LastErrorCode(), 0);
        EXPECT_FALSE(FolderItem(folder / ("to/" + link->Name())).Exists()) << "copied as a link";
    }
    EXPECT_EQ(FolderItem(folder / "to").Count(), 3);
}

TEST(FolderItem, CopiesMakesAndDeletesWithAnErrorCode) {
    const TemporaryFolder folder;
    const FolderItem source(folder.Write("source", std::string(200'000, 'x')));
    for (const int error : {0, EEXIST}) {
        source.CopyFileTo(FolderItem(folder / "copy"));
        EXPECT_EQ(source.LastErrorCode(), error);
        EXPECT_EQ(folder.Read("copy"), folder.Read("source"));
    }
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
    const FolderItem fifo(folder / "fifo");
    ASSERT_EQ(mkfifo(fifo.NativePath().c_str(), 0600), 0);
    fifo.CopyFileTo(FolderItem(folder / "copy of a FIFO"));
    EXPECT_EQ(fifo.LastErrorCode(), EINVAL);
    FolderItem(folder / "none").CopyFileTo(FolderItem(folder / "copy of none"));
    EXPECT_FALSE(FolderItem(folder / "copy of none").Exists());
}

}  // namespace
}  // namespace dunvey
