#pragma once

#include <string>
#include <utility>

#include "persistence/json_item.h"
#include "platform/files/folder_item.h"
#include "platform/values/reference.h"
#include "platform/values/variant.h"

namespace dunvey {

/// The preferences of one application: a JSON document in memory and the file that it comes from,
/// `NAME/NAME.pref` in the user's application-data folder.
class PrefsClass {
 public:
    explicit PrefsClass(std::string appName);
    virtual ~PrefsClass() = default;

    /// Raises PreferenceNotFoundException.
    virtual Variant Get(const std::string& name) const;
    /// Reads the file, after making its folder if it is missing. False if there is no file or it
    /// holds no JSON. An array at the top counts as an empty document. Raises IOException if the
    /// file can't be read or is larger than 16 MiB; Save then leaves it alone.
    virtual bool Load();

    /// The result of `preferences[name]`, read or assigned through Get and Set.
    class Preference {
     public:
        Preference(PrefsClass& preferences, std::string name)
            : preferences_(preferences), name_(std::move(name)) {}
        operator Variant() const { return preferences_.Get(name_); }
        Preference& operator=(const Variant& value) {
            preferences_.Set(name_, value);
            return *this;
        }

     private:
        PrefsClass& preferences_;
        std::string name_;
    };
    virtual Preference operator[](const std::string& name) { return {*this, name}; }

    /// Writes the document over the file. False without an earlier Load or Remove that succeeded,
    /// if the file can't be written, or if it would be larger than 16 MiB.
    virtual bool Save();
    /// Adds or replaces.
    virtual void Set(const std::string& name, const Variant& value);
    /// Deletes the file if there is one; the document stays.
    virtual void Remove();

 private:
    Ref<FolderItem> Folder() const;

    Ref<JSONItem> mPrefs;
    Ref<FolderItem> mPrefsFile;
    std::string mAppName;
};

}  // namespace dunvey
