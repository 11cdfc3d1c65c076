#include "platform/loop/launch_documents.h"

#include "platform/loop/desktop.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop&) {
    Desktop::Current();
}

}  // namespace dunvey
