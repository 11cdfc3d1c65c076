#pragma once

#include <cstdint>
#include <string>

#include "persistence/prefs_class.h"
#include "platform/values/reference.h"

/// The preferences. The program reads and writes them here; the file is read once at the start and
/// written once at the end. Main thread only.
namespace dunvey::Preferences {

/// The state of the check box that allows a document to be opened by a higher version.
extern bool gAllowOpenHigherVersion;
/// The state of the check box that enables the quit button.
extern bool gAllowQuitButtonActiveted;
/// The installed version from which the document icons were last imported; empty for none.
extern std::string pIconVersion;
/// The build of this program that wrote the file; 0 before there was one.
extern int64_t pNonReleaseVersion;

/// The store of the values; nil until Initialize.
extern Ref<PrefsClass> Prefs;

/// Makes a new store for the application.
void Initialize(const std::string& appName);
/// Reads the values at the start. If the Option and the Command key are both held down, the file is
/// deleted first. If the file can't be used, all values get their defaults, without a message; a
/// file that can't be read isn't written at the end either.
void Raed();
/// Writes the values at the end; a failure is silent.
void Save();
/// Sets all values to their defaults. Does nothing without a store.
void SetDefault();

}  // namespace dunvey::Preferences
