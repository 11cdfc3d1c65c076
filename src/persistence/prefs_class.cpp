#include "persistence/prefs_class.h"

#include <cerrno>

#include "persistence/json_exception.h"
#include "persistence/preference_not_found_exception.h"
#include "platform/files/special_folder.h"
#include "platform/files/streams.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

constexpr int64_t kMaxFileSize = int64_t{16} << 20;

Ref<JSONItem> EmptyDocument() {
    Ref<JSONItem> document = New<JSONItem>();
    document->Compact = false;
    return document;
}

std::string ReadFile(const Ref<FolderItem>& item) {
    const Ref<BinaryStream> file = BinaryStream::Open(item);
    if (file->Length() > kMaxFileSize) {
        throw IOException("The preferences are larger than 16 MiB.", EFBIG);
    }
    TextInputStream stream(file);
    std::string text = stream.ReadAll();
    stream.Close();
    return text;
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

bool PrefsClass::Load() {
    const Ref<FolderItem> folder = Folder();
    if (!folder->Exists()) folder->CreateAsFolder();
    mPrefsFile = folder->Child(mAppName + ".pref");
    if (!mPrefsFile->Exists()) return false;
    bool isAccepted = true;
    try {
        mPrefs->Load(ReadFile(mPrefsFile));
    } catch (const JSONException&) {
        isAccepted = false;
    } catch (const IOException&) {
        // Save must not overwrite a file that couldn't be read.
        mPrefsFile = nullptr;
        throw;
    }
    // An array takes no values under names.
    if (mPrefs->IsArray()) mPrefs = EmptyDocument();
    return isAccepted;
}

bool PrefsClass::Save() {
    if (!mPrefsFile) return false;
    try {
        const std::string text = mPrefs->ToString();
        if (LenB(text) > kMaxFileSize) return false;
        const Ref<TextOutputStream> stream = TextOutputStream::Create(mPrefsFile);
        stream->Write(text);
        stream->Close();
    } catch (const IOException&) {
        return false;
    } catch (const OutOfMemoryException&) {
        return false;
    }
    return true;
}

void PrefsClass::Set(const std::string& name, const Variant& value) {
    mPrefs->SetValue(name, value);
}

void PrefsClass::Remove() {
    const Ref<FolderItem> folder = Folder();
    if (!folder->Exists()) return;
    mPrefsFile = folder->Child(mAppName + ".pref");
    if (mPrefsFile->Exists()) mPrefsFile->Delete();
}

}  // namespace dunvey
