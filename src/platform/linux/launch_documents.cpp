#include "platform/loop/launch_documents.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop& loop) {
    for (const std::string& word : LaunchWords()) {
        const std::string path = PathOfWord(word);
        if (!path.empty()) loop.PostOpenDocument(New<FolderItem>(path));
    }
}

}  // namespace dunvey
