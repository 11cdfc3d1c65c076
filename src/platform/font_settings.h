#pragma once

/// The system's font settings, which the toolkit reads before it shows a first text. Where they are
/// many files, nothing of what it does until then takes longer. Where the system has them at hand,
/// or hasn't got any, nothing happens here.
namespace dunvey::FontSettings {

/// Begins to read them beside other work, once, so that the toolkit finds them read.
void ReadAhead();
/// Returns when they are read, if that has begun.
void Await();

}  // namespace dunvey::FontSettings
