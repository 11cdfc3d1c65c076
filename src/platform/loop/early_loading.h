#pragma once

/// What the toolkit stands on, fetched beside other work as soon as a window is sure to be needed:
/// the shared libraries below it, and the font settings that it reads before it shows a first text.
/// The toolkit itself is left to the thread that will use it. Where the system has all that at
/// hand, nothing happens here.
namespace dunvey::EarlyLoading {

/// Begins, once. Without a thread for it the toolkit fetches everything in its own time.
void Begin();
/// The same without the libraries, where the toolkit is loaded at once: it would have to wait.
void BeginWithoutLibraries();
/// Returns when that has ended; it must have begun.
void Await();

}  // namespace dunvey::EarlyLoading
