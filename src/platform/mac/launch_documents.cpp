#include "platform/launch_documents.h"

#include "platform/desktop.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop&) {
    Desktop::Current();
}

}  // namespace dunvey
