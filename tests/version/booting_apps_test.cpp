#include "version/booting_apps.h"

#include <gtest/gtest.h>

#include "support/world.h"
#include "version/launch_command.h"

namespace dunvey {
namespace {

class Booting : public test::World {
 protected:
    /// The names found in this output of `ps`.
    std::vector<std::string> Names(const std::string& output) {
        folder_.Write("ps-output", output);
        InDesign::GetBootingAppNames();
        return InDesign::BootingAppNames;
    }

    using Texts = std::vector<std::string>;
    const Texts cs6_ = {AppName("CS6")};
};

TEST_F(Booting, NamesAreInTheOrderOfTheListWithDuplicates) {
    EXPECT_EQ(
        Names("COMM\n/sbin/init\n" + ProcessLine("CC") + ProcessLine("CS6") + ProcessLine("CC")),
        (Texts{AppName("CC"), AppName("CS6"), AppName("CC")}));
    std::string hostile;
    while (hostile.size() < 16'000)
        hostile += folder_ / "Applications/Adobe InDesign ";
    EXPECT_EQ(Names(hostile + "\n" + ProcessLine("CS6")), cs6_);
    EXPECT_EQ(Names("\xFF\xFE\n" + ProcessLine("CS6") + "\x80"), cs6_);
    EXPECT_EQ(Names(""), Texts());
}

TEST_F(Booting, TheUsersApplicationsFolderMayBeALink) {
    folder_.MakeFolder("elsewhere/Programs");
    rmdir((folder_ / "Applications").c_str());
    ASSERT_EQ(symlink("elsewhere/Programs", (folder_ / "Applications").c_str()), 0);
    const std::string name = "/Adobe InDesign CS6";
    const std::string process = name + name + ".app/Contents/MacOS" + name;
    EXPECT_EQ(Names(folder_ / "elsewhere/Programs" + process), cs6_);
    EXPECT_EQ(Names(folder_ / "Applications" + process), cs6_);
    EXPECT_EQ(Names(folder_ / "elsewhere" + process), Texts());
    EXPECT_EQ(Names("/Applications" + process), Texts()) << "not the applications folder";
}

TEST_F(Booting, ADifferentApplicationRunsOnlyWhereTheGivenOneDoesNot) {
    const auto cs6 = Installed("CS6", "8.0.1");
    const auto cc = Installed("CC", "9.2.0");
    Running({"CS6"});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cs6));
    EXPECT_TRUE(InDesign::IsBootedDiffApp(cc));
    Running({"CS6", "CC"});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cc));
    unlink((folder_ / "ps-output").c_str());
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cc)) << "no list means that nothing runs";
}

TEST_F(Booting, NothingIsStartedWithoutAnApplicationOrDocuments) {
    ::testing::internal::CaptureStderr();
    InDesign::OpenWith(nullptr, "");
    InDesign::OpenWith(Installed("CS6", "8.0.1"), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    for (const Ref<FolderItem>& none : {Ref<FolderItem>(), New<FolderItem>(AppPath("gone"))}) {
        ::testing::internal::CaptureStderr();
        InDesign::OpenWith(none, "/a\\ b /c ");
        EXPECT_NE(::testing::internal::GetCapturedStderr().find("Not opened: /a\\ b /c"),
                  std::string::npos);
    }
    EXPECT_TRUE(OpenCalls().empty());
}

}  // namespace
}  // namespace dunvey
