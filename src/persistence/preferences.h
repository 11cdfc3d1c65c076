#pragma once

#include <cstdint>
#include <string>

#include "persistence/prefs_class.h"
#include "platform/values/reference.h"

/// The values that survive from run to run. The program reads and writes them here; the file is
/// read once at the start and written once at the end. Main thread only.
namespace dunvey::Preferences {

/// The state of the check box that lets a document open in a higher version.
extern bool gAllowOpenHigherVersion;
/// The state of the check box that makes the quit button available.
extern bool gAllowQuitButtonActiveted;
/// The installed version from which the document icons were last imported; empty for none.
extern std::string pIconVersion;
/// The build of this program that wrote the file; 0 before there was one.
extern int64_t pNonReleaseVersion;

/// The store behind the values; nil until Initialize.
extern Ref<PrefsClass> Prefs;

/// Makes a new store for the application.
void Initialize(const std::string& appName);
/// Reads the values at the start. With both the Option and the Command key held down the file is
/// deleted first. Where the file can't be used, for whatever reason, all values are the default
/// ones and nothing is said; one that couldn't be read isn't written in the end either.
void Raed();
/// Writes the values at the end; a failure is not told.
void Save();
/// Gives all values their defaults, if there is a store.
void SetDefault();

}  // namespace dunvey::Preferences
