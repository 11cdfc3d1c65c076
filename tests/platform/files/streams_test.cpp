#include "platform/files/streams.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/values/exceptions.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

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

TEST_F(Streams, OutputReplacesLongerAndShorterText) {
    for (const std::string& text :
         {std::string(100'000, 'y'), std::string("short"), std::string()}) {
        Write(text);
        EXPECT_EQ(TextInputStream::Open(file_)->ReadAll(), text);
    }
    { TextOutputStream::Create(file_)->Write("closed by the destructor"); }
    EXPECT_EQ(folder_.Read("file"), "closed by the destructor");
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
