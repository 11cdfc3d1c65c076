#include "platform/linux/helpers/script_search.h"

#include <stdlib.h>

#include "platform/linux/helpers/interpreter_line.h"
#include "platform/linux/helpers/program_file.h"

namespace dunvey {
namespace {

/// Whether the executable is one that mostly runs scripts, by its name without a version.
bool IsUsualInterpreter(Slice executable) {
    static constexpr Slice kNames[] = {"sh",   "bash", "dash", "ksh",   "mksh",   "zsh",
                                       "fish", "csh",  "tcsh", "perl",  "python", "ruby",
                                       "node", "php",  "lua",  "tclsh", "wish",   "guile"};
    Slice name = executable.LastElement();
    name = name.UpTo(name.FirstOf("0123456789."));
    for (const Slice& each : kNames) {
        if (name == each) return true;
    }
    return false;
}

/// The path with all links resolved, in the buffer; as it is where that isn't possible.
Slice Resolved(Slice path, ProcessFolder::PathBuffer& buffer) {
    if (realpath(path.data, buffer) == nullptr) memcpy(buffer, path.data, path.size + 1);
    return buffer;
}

}  // namespace

FirstWords::FirstWords(Slice all) {
    while (count_ < kLimit && !all.IsEmpty()) {
        words_[count_] = all.data;
        all = all.From(words_[count_++].size + 1);
    }
}

Slice ScriptSearch::Find(ProcessFolder::PathBuffer& buffer) {
    Slice script;
    size_t interpreter = 0;
    for (size_t i = 1; i < words_.Count(); ++i) {
        const bool isOption = words_[i].IsEmpty() || words_[i].StartsWith("-");
        if (isOption || !MayBeScript(words_[i])) continue;
        const Slice found = ScriptAt(i, interpreter, buffer);
        if (found.IsEmpty()) continue;
        script = found;
        interpreter = i;  // of a further script, if there is one
    }
    return script;
}

bool ScriptSearch::MayBeScript(Slice word) {
    if (IsUsualInterpreter(executable_) || IsInBundle(word)) return true;
    // Asked to run a script, the kernel starts what the script names, by its path.
    return words_.First().Has('/') && IsNamedLikeProcess(word);
}

/// It names the process after the script, by the first bytes of the file's name.
bool ScriptSearch::IsNamedLikeProcess(Slice word) {
    constexpr size_t kNameLength = 15;
    // To read the name is dear, as there are hundreds.
    if (!hasName_) name_ = folder_.Name(id_, nameBuffer_);
    hasName_ = true;
    return !name_.IsEmpty() && word.LastElement().UpTo(kNameLength) == name_;
}

Slice ScriptSearch::ScriptAt(size_t place, size_t interpreter,
                             ProcessFolder::PathBuffer& buffer) const {
    ProcessFolder::PathBuffer joined;
    const bool isAbsolute = words_[place].StartsWith("/");
    const Slice path = isAbsolute ? words_[place] : InCurrentFolder(words_[place], joined);
    if (path.IsEmpty()) return {};
    const InterpreterLine line(path.data);
    if (!line || !line.StartsWith(&words_[interpreter], place - interpreter)) return {};
    return isAbsolute && !IsRoundabout(path) ? path : Resolved(path, buffer);
}

Slice ScriptSearch::InCurrentFolder(Slice word, ProcessFolder::PathBuffer& buffer) const {
    const size_t size = folder_.Link(id_, "/cwd", buffer).size;
    if (size + 1 + word.size >= sizeof buffer) return {};
    buffer[size] = '/';
    memcpy(buffer + size + 1, word.data, word.size + 1);
    return {buffer, size + 1 + word.size};
}

}  // namespace dunvey
