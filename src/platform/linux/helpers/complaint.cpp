#include "platform/linux/helpers/complaint.h"

#include <sys/uio.h>
#include <unistd.h>

#include "platform/processes/system_call.h"

namespace dunvey {

void Complain(Slice program, Slice text, Slice detail) {
    const Slice texts[] = {program, ": ", text, detail, "\n"};
    iovec parts[5];
    int count = 0;
    for (const Slice each : texts)
        parts[count++] = {const_cast<char*>(each.data), each.size};
    for (iovec* part = parts; count > 0;) {
        const ssize_t written = Uninterrupted([&] { return writev(STDERR_FILENO, part, count); });
        if (written < 0) return;  // nobody is left to be told
        auto rest = static_cast<size_t>(written);
        for (; count > 0 && rest >= part->iov_len; --count)
            rest -= (part++)->iov_len;
        if (count == 0) return;
        part->iov_base = static_cast<char*>(part->iov_base) + rest;
        part->iov_len -= rest;
    }
}

}  // namespace dunvey
