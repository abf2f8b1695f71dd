#include "pagememory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif
#ifdef __linux__
#include <cstdint>
#include <sys/mman.h>

namespace {
constexpr size_t hugePage = size_t(2) << 20U;

/// To whole pages, of whatever size a system has them.
constexpr size_t rounded(size_t bytes)
{
    constexpr size_t page = size_t(64) << 10U;
    return (bytes + page - 1) / page * page;
}
} // namespace

/// Huge pages, which begin at whole ones, are filled and freed much faster.
void *takePages(size_t bytes)
{
    const size_t size = rounded(bytes);
    void *taken = mmap(nullptr, size + hugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (taken == MAP_FAILED)
        throw std::bad_alloc();
    char *const first = static_cast<char *>(taken);
    const size_t before = (hugePage - reinterpret_cast<std::uintptr_t>(first) % hugePage) % hugePage;
    if (before > 0)
        munmap(first, before);
    munmap(first + before + size, hugePage - before);
    madvise(first + before, size, MADV_HUGEPAGE);
    return first + before;
}

void returnPages(void *pages, size_t bytes)
{
    munmap(pages, rounded(bytes));
}
#else
void *takePages(size_t bytes)
{
    return ::operator new(bytes);
}

void returnPages(void *pages, size_t /*bytes*/)
{
    ::operator delete(pages);
}
#endif

void returnLargePieces()
{
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, static_cast<int>(fewPages));
#endif
}
