#include "persistence/prefs_class.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "persistence/json_exception.h"
#include "persistence/preference_not_found_exception.h"
#include "platform/files/special_folder.h"
#include "platform/files/streams.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

constexpr int64_t kLargestFile = 1 << 20;

/// Whether the document, written back, stays within the limit too. Written indented it can grow a
/// thousandfold, so that is first judged by the nesting and the number of lines that its text makes
/// at the most.
bool StaysSmall(const std::string& text, const JSONItem& document) {
    constexpr int64_t kWorthWriting = 64 * kLargestFile;
    int64_t depth = 0;
    int64_t deepest = 0;
    int64_t lines = 1;
    for (const char c : text) {
        if (c == '[' || c == '{') deepest = std::max(deepest, ++depth);
        if (c == ']' || c == '}') --depth;
        if (std::strchr("[]{},", c) != nullptr) ++lines;
    }
    if (lines * deepest * document.IndentSpacing > kWorthWriting) return false;
    return LenB(document.ToString()) <= kLargestFile;
}

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
    if (!folder->Exists()) folder->CreateAsFolder();
    mPrefsFile = folder->Child(mAppName + ".pref");
    if (!mPrefsFile->Exists()) return false;
    bool accepted = false;
    try {
        accepted = LoadDocument();
    } catch (const IOException&) {
        // What couldn't be read now may be read at the next start: it isn't to be replaced.
        mPrefsFile = nullptr;
        throw;
    }
    // Nothing can be set in an array.
    if (mPrefs->IsArray()) mPrefs = EmptyDocument();
    return accepted;
}

bool PrefsClass::LoadDocument() {
    const Ref<BinaryStream> file = BinaryStream::Open(mPrefsFile);
    if (file->Length() > kLargestFile) return false;
    TextInputStream stream(file);
    const std::string text = stream.ReadAll();
    stream.Close();
    try {
        mPrefs->Load(text);
        if (StaysSmall(text, *mPrefs)) return true;
        mPrefs = EmptyDocument();
    } catch (const JSONException&) {
        // As good as no file.
    }
    return false;
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
