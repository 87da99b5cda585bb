#include "core/VectorGrowth.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace Kvt::Mrl::MrlIO {

void adviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes)
{
#if defined(__linux__)
    constexpr std::uintptr_t pageSize = std::uintptr_t{2} << 20;
    if (bytes < 2 * pageSize)
        return;
    const auto start = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t firstPage = (start + pageSize - 1) / pageSize * pageSize;
    const std::uintptr_t end = (start + bytes) / pageSize * pageSize;
    if (firstPage < end)
        ::madvise(reinterpret_cast<void*>(firstPage), end - firstPage, MADV_HUGEPAGE);
#endif
}

} // namespace Kvt::Mrl::MrlIO
