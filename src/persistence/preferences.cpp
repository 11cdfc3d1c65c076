#include "persistence/preferences.h"

#include "platform/loop/application.h"
#include "platform/loop/keyboard.h"
#include "platform/values/exceptions.h"

namespace dunvey::Preferences {
namespace {

constexpr char kAllowOpenHigherVersion[] = "AllowOpenHigherVersion";
constexpr char kAllowQuitButtonActiveted[] = "AllowQuitButtonActiveted";
constexpr char kNonReleaseVersion[] = "NonReleaseVersion";
constexpr char kIconVersion[] = "IconVersion";

/// False if there is no usable file. Raises PreferenceNotFoundException if a value is missing.
bool ReadStore() {
    if (!Prefs->Load()) return false;
    gAllowOpenHigherVersion = Prefs->Get(kAllowOpenHigherVersion).BooleanValue();
    gAllowQuitButtonActiveted = Prefs->Get(kAllowQuitButtonActiveted).BooleanValue();
    pNonReleaseVersion = Prefs->Get(kNonReleaseVersion).Int64Value();
    pIconVersion = Prefs->Get(kIconVersion).StringValue();
    return true;
}

}  // namespace

bool gAllowOpenHigherVersion = false;
bool gAllowQuitButtonActiveted = false;
std::string pIconVersion;
int64_t pNonReleaseVersion = 0;
Ref<PrefsClass> Prefs;

void Initialize(const std::string& appName) {
    Prefs = New<PrefsClass>(appName);
}

void Raed() {
    Initialize(Application::ExecutableFile()->Name());
    if (Keyboard::AsyncOptionKey() && Keyboard::AsyncCommandKey()) Prefs->Remove();
    try {
        if (!ReadStore()) SetDefault();
    } catch (const RuntimeException&) {
        SetDefault();
    }
}

void Save() {
    if (!Prefs) return;
    Prefs->Set(kAllowOpenHigherVersion, gAllowOpenHigherVersion);
    Prefs->Set(kAllowQuitButtonActiveted, gAllowQuitButtonActiveted);
    Prefs->Set(kNonReleaseVersion, Application::NonReleaseVersion());
    Prefs->Set(kIconVersion, pIconVersion);
    Prefs->Save();
}

void SetDefault() {
    if (!Prefs) return;
    gAllowOpenHigherVersion = false;
    gAllowQuitButtonActiveted = false;
    pNonReleaseVersion = 0;
    pIconVersion.clear();
}

}  // namespace dunvey::Preferences
