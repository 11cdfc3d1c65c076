#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/folder_item.h"
#include "platform/files/streams.h"
#include "platform/processes/shell.h"
#include "platform/values/exceptions.h"
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

class Streams : public ::testing::Test {
 protected:
    void Write(const std::string& text) const {
        const Ref<TextOutputStream> stream = TextOutputStream::Create(file_);
        stream->Write(text);
        stream->Close();
    }

    const test::TemporaryFolder folder_;
    const Ref<FolderItem> file_ = New<FolderItem>(folder_.Write("file", std::string("ab\0cd", 5)));
};

TEST_F(Streams, RefuseWhatIsNoRegularFileOrTooLargeAndNeverWait) {
    ASSERT_EQ(mkfifo((folder_ / "fifo").c_str(), 0600), 0);
    for (const std::string& path : {folder_ / "fifo", folder_.Path(), folder_ / "none",
                                    std::string("/dev/zero"), folder_ / std::string(300, 'x')}) {
        const auto item = New<FolderItem>(path);
        EXPECT_THROW(BinaryStream::Open(item), IOException) << path;
        EXPECT_THROW(TextInputStream::Open(item), IOException) << path;
    }
    for (const std::string& path : {folder_.Path(), folder_ / "no/file"})
        EXPECT_THROW(TextOutputStream::Create(New<FolderItem>(path)), IOException);
    EXPECT_THROW(BinaryStream::Open(nullptr), NilObjectException);
    ASSERT_EQ(truncate(file_->NativePath().c_str(), off_t{1} << 42), 0);
    EXPECT_THROW(TextInputStream::Open(file_)->ReadAll(), IOException);
}

TEST_F(Streams, ProcessesThatCloseTogetherDoNotMixTheirTexts) {
    const std::string texts[] = {std::string(9'000, 'a'), std::string(70'000, 'b')};
    Write(texts[0]);
    for (int trial = 0; trial < 50; ++trial) {
        for (const std::string& text : texts) {
            if (fork() != 0) continue;
            Write(text);
            _exit(0);
        }
        while (waitpid(-1, nullptr, WNOHANG) >= 0) {
            usleep(500);
            const std::string seen = TextInputStream::Open(file_)->ReadAll();
            ASSERT_TRUE(seen == texts[0] || seen == texts[1]) << seen.size();
        }
    }
}

TEST_F(Streams, AFullDiskLeavesTheOldText) {
    const std::string longText(9000, 'o');
    folder_.Write("old", "the old text");
    folder_.Write("long", longText);
    ASSERT_EQ(symlink("target", (folder_ / "link").c_str()), 0);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1000, before.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    for (const char* name : {"old", "long", "new", "link"}) {
        const auto stream = TextOutputStream::Create(New<FolderItem>(folder_ / name));
        stream->Write(std::string(5000, 'z'));
        setrlimit(RLIMIT_FSIZE, &small);
        EXPECT_THROW(stream->Close(), IOException);
        setrlimit(RLIMIT_FSIZE, &before);
    }
    signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(folder_.Read("old"), "the old text");
    EXPECT_EQ(folder_.Read("long"), longText);
    EXPECT_FALSE(FolderItem(folder_ / "new").Exists());
    EXPECT_FALSE(FolderItem(folder_ / "target").Exists());
}

}  // namespace
}  // namespace dunvey
