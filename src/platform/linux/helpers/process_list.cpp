#include "platform/linux/helpers/process_list.h"

#include <algorithm>

#include "platform/linux/helpers/program_file.h"

namespace dunvey {

std::vector<pid_t> ProcessList::Ids() const {
    std::vector<pid_t> ids;
    ProcessFolder::IdsBuffer some;
    ssize_t count;
    while ((count = folder_.NextIds(some)) > 0)
        ids.insert(ids.end(), some, some + count);
    if (count < 0) return {};
    std::sort(ids.begin(), ids.end());
    return ids;
}

ProgramFile ProcessList::Program(pid_t id) const {
    ProgramFinder finder(folder_);
    const ProgramPath program = finder.Find(id);
    return {{program.path.data, program.path.size}, program.hasLinks};
}

bool ProcessList::HasWords(pid_t id) const {
    ProcessFolder::WordsBuffer buffer;
    return !folder_.Words(id, buffer).IsEmpty();
}

}  // namespace dunvey
