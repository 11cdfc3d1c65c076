#include "app/exception_report.h"

#include <string>

#include "platform/controls/message_dialog.h"
#include "platform/loop/desktop.h"
#include "platform/processes/error_line.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

struct Report {
    std::string name;
    std::string message;
    std::string origin;
    bool isMissingScreen = false;
};

Report Describe(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const RuntimeException& failure) {
        const auto* const screen = dynamic_cast<const DesktopUnavailableException*>(&failure);
        return {failure.Name(), failure.Message, failure.Origin(), screen != nullptr};
    } catch (const std::exception& failure) {
        return {"std::exception", failure.what(), "unknown place"};
    } catch (...) {
        return {"unknown exception", "", "unknown place"};
    }
}

void ShowReport(const Report& report) {
    MessageDialog dialog;
    dialog.Icon = MessageDialog::kStop;
    dialog.Message = ExceptionText::kMustEnd("") + report.name;
    dialog.Explanation = report.message + " (" + report.origin + ")";
    dialog.ActionButton->Caption = "OK";
    dialog.ShowModal();
}

}  // namespace

void ReportException(const std::exception_ptr& exception) {
    const Report report = Describe(exception);
    if (report.isMissingScreen) return WriteErrorLine("Dunvey: " + report.message);
    WriteErrorLine("Dunvey: unhandled " + report.name + ": " + report.message + " (" +
                   report.origin + ")");
    try {
        ShowReport(report);
    } catch (...) {
        // There is no screen, or the dialog failed. Standard error has the report.
    }
}

}  // namespace dunvey
