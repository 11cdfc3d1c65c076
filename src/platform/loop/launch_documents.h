#pragma once

#include <string>
#include <vector>

#include "platform/loop/event_loop.h"

namespace dunvey {

/// The path that a word of the start names: a path, or a local `file:` URI, which is decoded. Every
/// word is a file name or nothing, also one that begins with "-". Empty for the empty word. A URI
/// of another machine, or one that can't be decoded, counts as a path.
std::string PathOfWord(const std::string& word);

/// Keeps the words of the start, without the program's own name.
void KeepLaunchWords(std::vector<std::string> words);
const std::vector<std::string>& LaunchWords();

/// Brings the documents of the launch into the event loop. On Linux they are the words of the
/// start, one open-document event each, in their order. On macOS they come through the desktop,
/// which is loaded here, and the words are nothing.
void PostLaunchDocuments(EventLoop& loop);

}  // namespace dunvey
