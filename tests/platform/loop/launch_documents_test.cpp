#include "platform/loop/launch_documents.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace dunvey {
namespace {

const std::vector<std::string> kExtensions = {"indd", "indb"};

TEST(Intake, LocalFilesOfTheKindsAreDocumentsAllElseIsRefusedWithAReason) {
    const test::TemporaryFolder folder;
    const std::string uri = "file://" + folder.Path() + "/";
    const std::string blank = folder.Write("a b.indd", "");
    const std::string book = folder.Write("\xFF%.INDB", "");
    folder.MakeFolder("folder.indd");
    ASSERT_EQ(mkfifo((folder / "pipe.indd").c_str(), 0600), 0);
    ASSERT_EQ(symlink("a b.indd", (folder / "link.indd").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (folder / "dangling.indd").c_str()), 0);
    char host[256] = {};
    ASSERT_EQ(gethostname(host, sizeof host - 1), 0);
    const std::pair<std::string, std::string> documents[] = {
        {blank, blank},
        {uri + "a%20b.indd", blank},
        {"FILE:" + folder.Path() + "/a b.indd", blank},
        {"file://LocalHost" + folder.Path() + "/%ff%25.INDB", book},
        {std::string("file://") + host + folder.Path() + "/link.indd", folder / "link.indd"}};
    for (const auto& [argument, path] : documents) {
        const Intake intake = TakeIn({argument}, kExtensions);
        EXPECT_EQ(intake.documents, std::vector<std::string>{path}) << argument;
        EXPECT_TRUE(intake.refusals.empty()) << argument;
    }
    const std::pair<std::string, const char*> refused[] = {
        {"", "No such file"},
        {folder / "gone.indd", "No such file"},
        {folder / "dangling.indd", "No such file"},
        {folder / "folder.indd", "folder"},
        {folder / "pipe.indd", "not a regular file"},
        {folder.Write("a.txt", ""), "not of a kind"},
        {folder.Write("a.indd.bak", ""), "not of a kind"},
        {std::string(5000, 'p') + ".indd", "too long"},
        {"--help", "no options"},
        {"https://example.org/a.indd", "this computer"},
        {"file://elsewhere" + blank, "not the address"},
        {"file:a b.indd", "not the address"},
        {uri + "a%2", "not the address"},
        {uri + "a%2g.indd", "not the address"},
        {uri + "%00.indd", "not the address"}};
    for (const auto& [argument, reason] : refused) {
        const Intake intake = TakeIn({argument}, kExtensions);
        EXPECT_TRUE(intake.documents.empty()) << argument;
        ASSERT_EQ(intake.refusals.size(), 1U) << argument;
        EXPECT_TRUE(intake.refusals[0].starts_with("\"" + argument + "\"")) << argument;
        EXPECT_NE(intake.refusals[0].find(reason), std::string::npos) << intake.refusals[0];
    }
    EXPECT_EQ(TakeIn({folder / "a.txt"}, {}).documents.size(), 1U) << "any file is taken";
}

}  // namespace
}  // namespace dunvey
