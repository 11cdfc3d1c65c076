#pragma once

#include "platform/linux/helpers/process_folder.h"

namespace dunvey {

/// The first of the words that a process was started with.
class FirstWords {
 public:
    /// A script stands among them: behind its interpreter, the interpreter's arguments, and where
    /// the interpreter is a script again, behind that one's.
    static constexpr size_t kLimit = 8;

    /// Of words with a zero byte behind each.
    explicit FirstWords(Slice all);

    size_t Count() const { return count_; }
    const Slice& operator[](size_t i) const { return words_[i]; }
    /// The first; empty if there is none.
    Slice First() const { return words_[0]; }

 private:
    Slice words_[kLimit];
    size_t count_ = 0;
};

/// Looks for the script that a process runs. Without the C++ library.
class ScriptSearch {
 public:
    ScriptSearch(const ProcessFolder& folder, pid_t id, Slice executable, const FirstWords& words)
        : folder_(folder), id_(id), executable_(executable), words_(words) {}

    /// The script's absolute path, which may stand in the buffer; empty if the process runs none.
    Slice Find(ProcessFolder::PathBuffer& buffer);

 private:
    /// Whether the word is worth a look at the file. That is another program's affair: it may lie
    /// on a mount that doesn't answer, or be mounted by the look alone.
    bool MayBeScript(Slice word);
    bool IsNamedLikeProcess(Slice word);
    /// The path of the script that one of the words names, the interpreter being another one and
    /// between the two its arguments; empty if that isn't so.
    Slice ScriptAt(size_t place, size_t interpreter, ProcessFolder::PathBuffer& buffer) const;
    /// The path that a word means in the folder of the process; empty if it is too long.
    Slice InCurrentFolder(Slice word, ProcessFolder::PathBuffer& buffer) const;

    const ProcessFolder& folder_;
    pid_t id_;
    Slice executable_;
    const FirstWords& words_;
    ProcessFolder::NameBuffer nameBuffer_;
    Slice name_;
    bool hasName_ = false;
};

}  // namespace dunvey
