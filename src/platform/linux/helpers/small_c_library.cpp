// What the start of a program with the small C library leaves undone: the tables that only the
// start writes to, of addresses, stay open to writing.
#include <elf.h>
#include <link.h>
#include <stdint.h>
#include <sys/mman.h>
#include <unistd.h>

extern "C" [[gnu::visibility("hidden")]] const ElfW(Ehdr) __ehdr_start;

namespace dunvey {
namespace {

/// From the first page that the tables touch to the last that they fill.
void Protect(uintptr_t begin, uintptr_t end) {
    const uintptr_t inPage = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE)) - 1;
    begin &= ~inPage;
    end &= ~inPage;
    if (end > begin) mprotect(reinterpret_cast<void*>(begin), end - begin, PROT_READ);
}

[[gnu::constructor]] void ProtectTables() {
    const auto base = reinterpret_cast<uintptr_t>(&__ehdr_start);
    const auto* headers = reinterpret_cast<const ElfW(Phdr)*>(base + __ehdr_start.e_phoff);
    for (size_t i = 0; i < __ehdr_start.e_phnum; ++i) {
        const ElfW(Phdr)& each = headers[i];
        if (each.p_type != PT_GNU_RELRO) continue;
        Protect(base + each.p_vaddr, base + each.p_vaddr + each.p_memsz);
    }
}

}  // namespace
}  // namespace dunvey
