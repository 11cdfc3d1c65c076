#include "platform/files/streams.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include "platform/values/exceptions.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

using test::TemporaryFolder;

TEST(BinaryStream, ReadsInPieces) {
    const TemporaryFolder folder;
    const auto file = New<FolderItem>(folder.Write("file", std::string("ab\0cd", 5)));
    const Ref<BinaryStream> stream = BinaryStream::Open(file);
    EXPECT_EQ(stream->Length(), 5);
    EXPECT_EQ(stream->Read(3), std::string("ab\0", 3));
    EXPECT_EQ(stream->Read(9), "cd");
    EXPECT_EQ(stream->Read(9), "");
}

TEST(Streams, RefuseWhatIsNoRegularFileOrTooLargeAndNeverWait) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    for (const std::string& path : {folder / "fifo", folder.Path(), folder / "none",
                                    std::string("/dev/zero"), folder / std::string(300, 'x')}) {
        const auto item = New<FolderItem>(path);
        EXPECT_THROW(BinaryStream::Open(item), IOException) << path;
        EXPECT_THROW(TextInputStream::Open(item), IOException) << path;
    }
    EXPECT_THROW(TextOutputStream::Create(New<FolderItem>(folder.Path())), IOException);
    EXPECT_THROW(TextOutputStream::Create(New<FolderItem>(folder / "no/file")), IOException);
    EXPECT_THROW(BinaryStream::Open(nullptr), NilObjectException);
    const auto huge = New<FolderItem>(folder.Write("huge", "x"));
    ASSERT_EQ(truncate(huge->NativePath().c_str(), off_t{1} << 42), 0);
    EXPECT_THROW(TextInputStream::Open(huge)->ReadAll(), IOException);
}

TEST(TextOutputStream, ReplacesLongerAndShorterText) {
    const TemporaryFolder folder;
    const auto file = New<FolderItem>(folder / "file");
    for (const std::string& text :
         {std::string("first"), std::string(100'000, 'y'), std::string("short"), std::string()}) {
        const Ref<TextOutputStream> stream = TextOutputStream::Create(file);
        stream->Write(text);
        stream->Close();
        EXPECT_EQ(folder.Read("file"), text);
        EXPECT_EQ(TextInputStream::Open(file)->ReadAll(), text);
    }
    { TextOutputStream::Create(file)->Write("closed by the end"); }
    EXPECT_EQ(folder.Read("file"), "closed by the end");
}

TEST(TextOutputStream, ProcessesThatCloseTogetherDoNotMixTheirTexts) {
    const TemporaryFolder folder;
    const auto file = New<FolderItem>(folder / "file");
    const std::vector<std::string> texts = {std::string(9'000, 'a'), std::string(70'000, 'b')};
    for (int trial = 0; trial < 50; ++trial) {
        std::vector<pid_t> children;
        for (const std::string& text : texts) {
            children.push_back(fork());
            if (children.back() != 0) continue;
            const Ref<TextOutputStream> stream = TextOutputStream::Create(file);
            stream->Write(text);
            stream->Close();
            _exit(0);
        }
        while (waitpid(-1, nullptr, WNOHANG) >= 0) {
            usleep(500);
            if (trial == 0) continue;
            const std::string seen = TextInputStream::Open(file)->ReadAll();
            ASSERT_TRUE(seen == texts[0] || seen == texts[1]) << seen.size();
        }
    }
}

TEST(TextOutputStream, AFullDiskLeavesTheOldText) {
    const TemporaryFolder folder;
    folder.Write("old", "the old text");
    ASSERT_EQ(symlink("behind the link", (folder / "link").c_str()), 0);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 1000;
    signal(SIGXFSZ, SIG_IGN);
    for (const char* name : {"old", "new", "link"}) {
        const Ref<TextOutputStream> stream =
            TextOutputStream::Create(New<FolderItem>(folder / name));
        stream->Write(std::string(5000, 'z'));
        setrlimit(RLIMIT_FSIZE, &small);
        EXPECT_THROW(stream->Close(), IOException);
        setrlimit(RLIMIT_FSIZE, &before);
    }
    signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(folder.Read("old"), "the old text");
    EXPECT_FALSE(FolderItem(folder / "new").Exists());
    EXPECT_FALSE(FolderItem(folder / "behind the link").Exists());
}

}  // namespace
}  // namespace dunvey
