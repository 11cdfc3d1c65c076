#include "app/drop_timer.h"

#include "app/app.h"
#include "platform/loop/event_loop.h"

namespace dunvey {

void DropTimer::Event_Action() {
    App::Instance()->CanAccepted = false;
    App::Instance()->JudgeToOpen();
    Quit(App::Instance()->CouldNotAsk ? 1 : 0);
}

}  // namespace dunvey
