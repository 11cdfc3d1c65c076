#include "platform/launch_documents.h"

namespace dunvey {

void PostLaunchDocuments(EventLoop& loop, const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        const std::string path = PathOfWord(word);
        if (!path.empty()) loop.PostOpenDocument(New<FolderItem>(path));
    }
}

}  // namespace dunvey
