#include "app/exception_report.h"

#include <cstdio>
#include <string>

#include "platform/controls/message_dialog.h"
#include "platform/loop/desktop.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

struct Report {
    std::string name;
    std::string message;
    std::string origin;
};

Report Describe(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const RuntimeException& failure) {
        return {failure.Name(), failure.Message, failure.Origin()};
    } catch (const std::exception& failure) {
        return {"std::exception", failure.what(), "unknown place"};
    } catch (...) {
        return {"unknown exception", "", "unknown place"};
    }
}

bool IsMissingScreen(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const DesktopUnavailableException&) {
        return true;
    } catch (...) {
        return false;
    }
}

void ShowReport(const Report& report) {
    MessageDialog dialog;
    dialog.Icon = MessageDialog::kStop;
    dialog.Message = "Dunvey has to end: " + report.name;
    dialog.Explanation = report.message + " (" + report.origin + ")";
    dialog.ActionButton->Caption = "OK";
    dialog.ShowModal();
}

}  // namespace

void ReportException(const std::exception_ptr& exception) {
    const Report report = Describe(exception);
    if (IsMissingScreen(exception)) {
        std::fprintf(stderr, "Dunvey: %s\n", report.message.c_str());
        return;
    }
    std::fprintf(stderr, "Dunvey: unhandled %s: %s (%s)\n", report.name.c_str(),
                 report.message.c_str(), report.origin.c_str());
    try {
        ShowReport(report);
    } catch (...) {
        // No screen, or the screen itself is what failed: standard error has it.
    }
}

}  // namespace dunvey
