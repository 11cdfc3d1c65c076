#include "version/booting_apps.h"

#include <gtest/gtest.h>

#include "support/world.h"
#include "version/launch_command.h"

namespace dunvey {
namespace {

class Booting : public test::World {
 protected:
    std::string Names(const std::string& output) {
        folder_.Write("ps-output", output);
        InDesign::GetBootingAppNames();
        std::string names;
        for (const std::string& name : InDesign::BootingAppNames)
            names += name + "|";
        return names;
    }
    std::string Line(const std::string& path) { return Names("COMM\n" + path + "\n"); }
};

TEST_F(Booting, NamesAreInListOrderWithDuplicates) {
    EXPECT_EQ(
        Names("COMM\n/sbin/init\n" + ProcessLine("CC") + ProcessLine("CS6") + ProcessLine("CC")),
        "Adobe InDesign CC.app|Adobe InDesign CS6.app|Adobe InDesign CC.app|");
}

TEST_F(Booting, TheUsersApplicationsFolderMayBeALink) {
    folder_.MakeFolder("elsewhere/Programs");
    rmdir((folder_ / "Applications").c_str());
    ASSERT_EQ(symlink("elsewhere/Programs", (folder_ / "Applications").c_str()), 0);
    const std::string name = "/Adobe InDesign CC";
    const std::string process = name + name + ".app/Contents/MacOS" + name;
    EXPECT_EQ(Line(folder_ / "elsewhere/Programs" + process), "Adobe InDesign CC.app|");
    EXPECT_EQ(Line(folder_ / "Applications" + process), "Adobe InDesign CC.app|");
    EXPECT_EQ(Line(folder_ / "elsewhere" + process), "");
    EXPECT_EQ(Line("/Applications" + process), "") << "not the applications folder";
}

TEST_F(Booting, AFailedListMeansNothingIsRunning) {
    Names(ProcessLine("CS6"));
    EXPECT_EQ(Names(""), "");
    unlink((folder_ / "ps-output").c_str());
    InDesign::GetBootingAppNames();
    EXPECT_TRUE(InDesign::BootingAppNames.empty());
    EXPECT_EQ(Names("\xFF\xFE\n" + ProcessLine("CS6") + "\x80"), "Adobe InDesign CS6.app|");
    std::string hostile;
    while (hostile.size() < 16'000)
        hostile += folder_ / "Applications/Adobe InDesign ";
    EXPECT_EQ(Names(hostile + "\n" + ProcessLine("CS6")), "Adobe InDesign CS6.app|");
}

TEST_F(Booting, ADifferentApplicationRunsOnlyWhereTheGivenOneDoesNot) {
    const auto cs6 = Installed("CS6", "8.0.1");
    const auto cc = Installed("CC", "9.2.0");
    Running({});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cs6));
    Running({"CS6"});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cs6));
    EXPECT_TRUE(InDesign::IsBootedDiffApp(cc));
    Running({"CS6", "CC"});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cc));
}

TEST_F(Booting, NothingIsStartedWithoutAnApplicationOrDocuments) {
    const auto cs6 = Installed("CS6", "8.0.1");
    ::testing::internal::CaptureStderr();
    InDesign::OpenWith(nullptr, "");
    InDesign::OpenWith(cs6, "");
    InDesign::OpenWith(New<FolderItem>(AppPath("gone")), "");
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
