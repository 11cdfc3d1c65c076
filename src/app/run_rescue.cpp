#include "app/run_rescue.h"

#include <cstdlib>
#include <utility>

#include "app/app.h"
#include "platform/desktop.h"

namespace dunvey {
namespace {

constexpr int64_t kNone = -1;
int64_t asked = kNone;

std::unique_ptr<Desktop> NoDesktop() {
    throw DesktopUnavailableException("The display has gone away.");
}

}  // namespace

RunAtRisk::RunAtRisk(int64_t idx) {
    // Registered late, so that it runs ahead of the end of everything that it uses.
    static const int registered = std::atexit(&RescueRun);
    (void)registered;
    asked = idx;
}

RunAtRisk::~RunAtRisk() {
    asked = kNone;
}

void RescueRun() {
    const int64_t next = std::exchange(asked, kNone);
    if (next == kNone) return;
    Desktop::Abandon();
    Desktop::SetLoader(&NoDesktop);
    const Ref<App> app = App::Instance();
    app->JudgeFrom(next);
    app->Close();
}

}  // namespace dunvey
