#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>
#include <vector>

/// Memory that the system gives and gets back at once: large pieces that the C library frees in the middle of
/// its heap would stay with the process.
void *takePages(size_t bytes);
/// bytes: as many as were taken.
void returnPages(void *pages, size_t bytes);

/// From now on what the C library hands out in pieces of a megabyte or more goes back with them too. By
/// itself it keeps more and more of them, the larger the freed ones were.
void returnLargePieces();

/// From here on a piece is worth pages of its own.
constexpr size_t fewPages = size_t(1) << 20U;

template<typename T>
struct PageAllocator
{
    using value_type = T;

    PageAllocator() = default;
    template<typename Other>
    PageAllocator(const PageAllocator<Other> & /*other*/)
    {
    }
    T *allocate(size_t count)
    {
        const size_t bytes = count * sizeof(T);
        return static_cast<T *>(bytes < fewPages ? ::operator new(bytes) : takePages(bytes));
    }
    void deallocate(T *at, size_t count)
    {
        const size_t bytes = count * sizeof(T);
        if (bytes < fewPages)
            ::operator delete(at);
        else
            returnPages(at, bytes);
    }
    friend bool operator==(const PageAllocator & /*one*/, const PageAllocator & /*other*/) { return true; }
    friend bool operator!=(const PageAllocator & /*one*/, const PageAllocator & /*other*/) { return false; }
};

/// A vector whose memory goes back to the system with it.
template<typename T>
using PageVector = std::vector<T, PageAllocator<T>>;
