#include "app/run_rescue.h"

#include <cstdlib>
#include <exception>
#include <utility>

#include "app/app.h"
#include "app/exception_report.h"
#include "platform/loop/desktop.h"

namespace dunvey {
namespace {

std::function<void()> atRisk;

std::unique_ptr<Desktop> NoDesktop() {
    throw DesktopUnavailableException("The display has gone away.");
}

}  // namespace

RunAtRisk::RunAtRisk(std::function<void()> rest) {
    // Registered late, so that it runs ahead of the end of everything that it uses.
    static const int registered = std::atexit(&RescueRun);
    (void)registered;
    atRisk = std::move(rest);
}

RunAtRisk::~RunAtRisk() {
    atRisk = nullptr;
}

void RescueRun() {
    const std::function<void()> rest = std::exchange(atRisk, nullptr);
    if (!rest) return;
    Desktop::Abandon();
    Desktop::SetLoader(&NoDesktop);
    try {
        rest();
        App::Instance()->Close();
    } catch (...) {
        ReportException(std::current_exception());
    }
}

}  // namespace dunvey
