#include "platform/launch_documents.h"

#include "platform/desktop.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop&, const std::vector<std::string>&) {
    Desktop::Current();
}

}  // namespace dunvey
