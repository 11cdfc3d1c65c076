#include "platform/linux/dock_window.h"

#include <sys/stat.h>

#include "app/app.h"
#include "support/user.h"
#include "support/world.h"

namespace dunvey {
namespace {

class DockTest : public test::World {
 protected:
    DockTest() { Application::Register(app_); }
    ~DockTest() override { Application::Register(nullptr); }

    static std::string Uri(const std::string& path) { return "file://" + path; }
    Ref<DockWindow> Shown() {
        const Ref<DockWindow> dock = New<DockWindow>();
        user_->ExpectWindow(dock->Title(), {});
        dock->Show();
        return dock;
    }

    const Ref<App> app_ = New<App>();
};

TEST_F(DockTest, OnlyLocalFilesOfTheFourKindsAreDocuments) {
    const std::string document = folder_.Write("a b.indd", "");
    const std::string book = folder_.Write("\xFF%.INDB", "");
    const std::string foreign = folder_.Write("picture.png", "");
    folder_.MakeFolder("folder.indd");
    ASSERT_EQ(mkfifo((folder_ / "pipe.indd").c_str(), 0600), 0);
    ASSERT_EQ(symlink("a b.indd", (folder_ / "link.indt").c_str()), 0);
    const std::vector<std::string> words = {Uri(folder_ / "a%20b.indd"),
                                            book,
                                            foreign,
                                            Uri(folder_.Path()),
                                            folder_ / "folder.indd",
                                            folder_ / "pipe.indd",
                                            folder_ / "link.indt",
                                            folder_ / "gone.indd",
                                            "https://example.org/a.indd",
                                            "file://elsewhere/a.indd",
                                            "a b.indd",
                                            "",
                                            "file:///%00.indd"};
    EXPECT_EQ(DocumentsAmong(words, app_->DocumentExtensions()),
              (std::vector<std::string>{document, book, folder_ / "link.indt"}));
    EXPECT_EQ(DocumentsAmong({foreign}, {}), std::vector<std::string>{foreign})
        << "any file where no extensions are given";
}

TEST_F(DockTest, AMixedDropIsOneRunOfItsDocuments) {
    Installed("CS6", "8.0.1");
    std::vector<std::string> words = {folder_.Path(), folder_.Write("picture.png", "")};
    for (int i = 0; i < 1000; ++i)
        words.push_back(Document(std::to_string(i) + ".indd", 8)->NativePath());
    user_->Later([&] {
        const Ref<DockWindow> dock = Shown();
        dock->Take(test::User::ByUser(), words);
        EXPECT_TRUE(dock->IsClosed()) << "it goes at once";
        dock->Take(test::User::ByUser(), words);
    });
    EXPECT_EQ(loop_.Run(*app_), 0);
    ASSERT_EQ(OpenCalls().size(), 2U) << "the start, and the version that runs";
    EXPECT_EQ(OpenCalls()[0].size(), 1002U);
}

}  // namespace
}  // namespace dunvey
