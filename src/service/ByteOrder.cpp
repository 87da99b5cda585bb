#include "service/ByteOrder.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace Kvt::Mrl::Core::Service::ByteOrder {
namespace {
using CopyFunction = void (*)(char* to, const char* from, std::size_t count);

template <typename Unsigned>
void copyPlain(char* to, const char* from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        Unsigned value;
        std::memcpy(&value, from + i * sizeof value, sizeof value);
        value = bigEndian(value);
        std::memcpy(to + i * sizeof value, &value, sizeof value);
    }
}

#if defined(__x86_64__)
template <typename Unsigned>
[[gnu::target("avx2")]] __m256i reversingShuffle()
{
    if constexpr (sizeof(Unsigned) == 4)
        return _mm256_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12, // both lanes alike
                                3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
    else
        return _mm256_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8, //
                                7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8);
}

template <typename Unsigned>
[[gnu::target("avx2")]] void copyAvx2(char* to, const char* from, std::size_t count)
{
    constexpr std::size_t perVector = sizeof(__m256i) / sizeof(Unsigned);
    const __m256i shuffle = reversingShuffle<Unsigned>();
    std::size_t i = 0;
    for (; i + 2 * perVector <= count; i += 2 * perVector) {
        const auto* source = reinterpret_cast<const __m256i*>(from + i * sizeof(Unsigned));
        auto* target = reinterpret_cast<__m256i*>(to + i * sizeof(Unsigned));
        const __m256i first = _mm256_shuffle_epi8(_mm256_loadu_si256(source), shuffle);
        const __m256i second = _mm256_shuffle_epi8(_mm256_loadu_si256(source + 1), shuffle);
        _mm256_storeu_si256(target, first);
        _mm256_storeu_si256(target + 1, second);
    }
    copyPlain<Unsigned>(to + i * sizeof(Unsigned), from + i * sizeof(Unsigned), count - i);
}
#endif

template <typename Unsigned>
CopyFunction fastestCopy()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        return copyAvx2<Unsigned>;
#endif
    return copyPlain<Unsigned>;
}

template <typename Unsigned>
void copy(void* to, const void* from, std::size_t count)
{
    // Chosen on the first call. A resolver of the loader would run before the sanitizers are set up.
    static const CopyFunction function = fastestCopy<Unsigned>();
    function(static_cast<char*>(to), static_cast<const char*>(from), count);
}
} // namespace

void copy32(void* to, const void* from, std::size_t count)
{
    copy<std::uint32_t>(to, from, count);
}

void copy64(void* to, const void* from, std::size_t count)
{
    copy<std::uint64_t>(to, from, count);
}
} // namespace Kvt::Mrl::Core::Service::ByteOrder
