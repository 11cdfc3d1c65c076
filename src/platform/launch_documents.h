#pragma once

#include <string>
#include <vector>

#include "platform/event_loop.h"

namespace dunvey {

/// The path that a word of the start names: a path, or a local `file:` URI, which is decoded. Every
/// word is a file name or nothing, also one that begins with "-". Empty for the empty word. A URI
/// of another machine, or one that can't be decoded, counts as a path.
std::string PathOfWord(const std::string& word);

/// Brings the documents of the launch into the event loop. On Linux they are the words of the
/// start, one open-document event each, in their order. On macOS they come through the desktop,
/// which is loaded here, and the words are nothing.
void PostLaunchDocuments(EventLoop& loop, const std::vector<std::string>& words);

}  // namespace dunvey
