#include "persistence/prefs_class.h"

#include <utility>

#include "persistence/json_exception.h"
#include "persistence/preference_not_found_exception.h"
#include "platform/exceptions.h"
#include "platform/special_folder.h"
#include "platform/streams.h"

namespace dunvey {
namespace {

constexpr int64_t kLargestFile = 1 << 20;

Ref<JSONItem> EmptyDocument() {
    Ref<JSONItem> document = New<JSONItem>();
    document->Compact = false;
    return document;
}

}  // namespace

PrefsClass::PrefsClass(std::string appName)
    : mPrefs(EmptyDocument()), mAppName(std::move(appName)) {}

Ref<FolderItem> PrefsClass::Folder() const {
    return SpecialFolder::ApplicationData()->Child(mAppName);
}

Variant PrefsClass::Get(const std::string& name) const {
    if (!mPrefs->HasName(name)) throw Preferences::PreferenceNotFoundException(name);
    return mPrefs->Value(name);
}

void PrefsClass::Set(const std::string& name, const Variant& value) {
    mPrefs->SetValue(name, value);
}

bool PrefsClass::Load() {
    const Ref<FolderItem> folder = Folder();
    if (!folder->Exists()) {
        // On a fresh account even the folder above may be missing.
        if (!folder->Parent()->Exists()) folder->Parent()->CreateAsFolder();
        folder->CreateAsFolder();
    }
    mPrefsFile = folder->Child(mAppName + ".pref");
    if (!mPrefsFile->Exists()) return false;
    const bool accepted = LoadDocument();
    // Nothing can be set in an array.
    if (mPrefs->IsArray()) mPrefs = EmptyDocument();
    return accepted;
}

bool PrefsClass::LoadDocument() {
    const Ref<BinaryStream> file = BinaryStream::Open(mPrefsFile);
    if (file->Length() > kLargestFile) return false;
    TextInputStream stream(file);
    std::string text = stream.ReadAll();
    stream.Close();
    try {
        mPrefs->Load(std::move(text));
    } catch (const JSONException&) {
        return false;
    }
    return true;
}

bool PrefsClass::Save() {
    if (!mPrefsFile) return false;
    const std::string text = mPrefs->ToString();
    try {
        const Ref<TextOutputStream> stream = TextOutputStream::Create(mPrefsFile);
        stream->Write(text);
        stream->Close();
    } catch (const IOException&) {
        return false;
    }
    return true;
}

void PrefsClass::Remove() {
    const Ref<FolderItem> folder = Folder();
    if (!folder->Exists()) return;
    mPrefsFile = folder->Child(mAppName + ".pref");
    if (mPrefsFile->Exists()) mPrefsFile->Delete();
}

}  // namespace dunvey
