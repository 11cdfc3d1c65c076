#include "app/exception_report.h"

#include <gtest/gtest.h>

#include "platform/files/streams.h"
#include "platform/values/exceptions.h"
#include "support/world.h"

namespace dunvey {
namespace {

class ExceptionReport : public test::World {
 protected:
    template <typename Act>
    std::string Report(Act&& act) {
        ::testing::internal::CaptureStderr();
        try {
            act();
        } catch (...) {
            ReportException(std::current_exception());
        }
        return ::testing::internal::GetCapturedStderr();
    }
};

TEST_F(ExceptionReport, NamesTheExceptionItsMessageAndItsOrigin) {
    user_->ExpectMessage("Dunvey has to end: IOException", {}, [](const MessageDialog& dialog) {
        EXPECT_NE(dialog.Explanation.find("none.indd"), std::string::npos);
    });
    const std::string report =
        Report([this] { BinaryStream::Open(New<FolderItem>(folder_ / "none.indd")); });
    EXPECT_TRUE(report.starts_with("Dunvey: unhandled IOException: ")) << report;
    EXPECT_NE(report.find("none.indd\" can't be opened"), std::string::npos) << report;
    EXPECT_NE(report.find("(src/platform/files/streams.cpp:"), std::string::npos) << report;
}

TEST_F(ExceptionReport, IsWrittenToStandardErrorWithoutADisplayToo) {
    Desktop::Install(nullptr);
    const std::string report = Report([] { throw KeyNotFoundException("nothing there"); });
    EXPECT_NE(report.find("KeyNotFoundException: nothing there ("), std::string::npos) << report;
    EXPECT_NE(report.find("exception_report_test.cpp:"), std::string::npos) << report;
    InstallDesktop();
}

}  // namespace
}  // namespace dunvey
