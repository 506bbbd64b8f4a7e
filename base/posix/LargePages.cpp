#include "base/LargePages.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace mergeloom {

#ifdef M_TOP_PAD

namespace {

constexpr int kMegabyte = 1 << 20;
/// Enough for 10,000 fields. With many more of them the system takes longer than they save. Unused ones take
/// addresses only.
constexpr int kPart = 32 * kMegabyte;
constexpr int kGrowth = 4 * kMegabyte;
/// The largest that the library allows. Larger blocks would be returned to the system and requested again.
constexpr int kLargestBlock = 32 * kMegabyte;
constexpr std::uintptr_t kLargePage = std::uintptr_t{2} * kMegabyte;
/// More than the heap has at the start, so that it grows.
constexpr std::uintptr_t kFiller = kMegabyte / 4;
/// Before the first large page, where the library writes the size of what is free.
constexpr std::uintptr_t kMargin = 64;

std::uintptr_t endOfHeap() {
    return reinterpret_cast<std::uintptr_t>(sbrk(0));
}

}  // namespace

/// Makes the heap grow once by the whole part. The filler, which is never touched, takes the addresses up to
/// the first large page: the system does not make one where a small page is used already.
void useLargePages() {
    const std::uintptr_t first = (endOfHeap() + kFiller + kLargePage) / kLargePage * kLargePage;
    mallopt(M_MMAP_THRESHOLD, kLargestBlock);
    mallopt(M_TRIM_THRESHOLD, 2 * kPart);
    mallopt(M_TOP_PAD, kPart);
    void* const filler = std::malloc(kFiller);
    mallopt(M_TOP_PAD, kGrowth);
    const auto begin = reinterpret_cast<std::uintptr_t>(filler);
    const std::uintptr_t end = endOfHeap() / kLargePage * kLargePage;
    if (filler == nullptr || begin >= first || first >= end) return std::free(filler);
    static void* const unused = std::realloc(filler, first - begin - kMargin);
    if (unused == filler) madvise(static_cast<char*>(filler) + (first - begin), end - first, MADV_HUGEPAGE);
}

#else

void useLargePages() {}

#endif

}  // namespace mergeloom
