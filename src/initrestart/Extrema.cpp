#include "initrestart/Extrema.h"

#include <cstddef>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace Kvt::Mrl::MrlIO {

namespace {

/// The comparisons are false for a NaN among the values, as the vector instructions have it too.
template <class T>
void foldPlain(const T* values, std::size_t count, T& low, T& high)
{
    for (std::size_t i = 0; i < count; ++i) {
        low = values[i] < low ? values[i] : low;
        high = high < values[i] ? values[i] : high;
    }
}

#if defined(__x86_64__)

template <class T>
struct Lanes;

template <>
struct Lanes<int>
{
    using Vector = __m256i;

    [[gnu::target("avx2")]] static Vector fill(int value) { return _mm256_set1_epi32(value); }

    [[gnu::target("avx2")]] static Vector load(const int* from)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    }

    [[gnu::target("avx2")]] static void store(int* to, Vector lanes)
    {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), lanes);
    }

    [[gnu::target("avx2")]] static Vector min(Vector a, Vector b) { return _mm256_min_epi32(a, b); }

    [[gnu::target("avx2")]] static Vector max(Vector a, Vector b) { return _mm256_max_epi32(a, b); }
};

template <>
struct Lanes<float>
{
    using Vector = __m256;

    [[gnu::target("avx2")]] static Vector fill(float value) { return _mm256_set1_ps(value); }

    [[gnu::target("avx2")]] static Vector load(const float* from) { return _mm256_loadu_ps(from); }

    [[gnu::target("avx2")]] static void store(float* to, Vector lanes) { _mm256_storeu_ps(to, lanes); }

    [[gnu::target("avx2")]] static Vector min(Vector a, Vector b) { return _mm256_min_ps(a, b); }

    [[gnu::target("avx2")]] static Vector max(Vector a, Vector b) { return _mm256_max_ps(a, b); }
};

template <>
struct Lanes<double>
{
    using Vector = __m256d;

    [[gnu::target("avx2")]] static Vector fill(double value) { return _mm256_set1_pd(value); }

    [[gnu::target("avx2")]] static Vector load(const double* from) { return _mm256_loadu_pd(from); }

    [[gnu::target("avx2")]] static void store(double* to, Vector lanes) { _mm256_storeu_pd(to, lanes); }

    [[gnu::target("avx2")]] static Vector min(Vector a, Vector b) { return _mm256_min_pd(a, b); }

    [[gnu::target("avx2")]] static Vector max(Vector a, Vector b) { return _mm256_max_pd(a, b); }
};

/// Of two numbers that don't compare the instructions give the second, hence the order of the arguments. Two vectors a
/// turn, so that one needn't wait for the other.
template <class T>
[[gnu::target("avx2")]] std::size_t foldAvx2(const T* values, std::size_t count, T& low, T& high)
{
    using L = Lanes<T>;
    constexpr std::size_t perVector = sizeof(typename L::Vector) / sizeof(T);
    typename L::Vector lows[2] = {L::fill(low), L::fill(low)};
    typename L::Vector highs[2] = {L::fill(high), L::fill(high)};
    std::size_t i = 0;
    for (; i + 2 * perVector <= count; i += 2 * perVector) {
        const typename L::Vector first = L::load(values + i);
        const typename L::Vector second = L::load(values + i + perVector);
        lows[0] = L::min(first, lows[0]);
        highs[0] = L::max(first, highs[0]);
        lows[1] = L::min(second, lows[1]);
        highs[1] = L::max(second, highs[1]);
    }
    T lanes[2 * perVector];
    L::store(lanes, L::min(lows[1], lows[0]));
    L::store(lanes + perVector, L::max(highs[1], highs[0]));
    foldPlain(lanes, 2 * perVector, low, high);
    return i;
}

#endif

template <class T>
void fold(std::span<const T> values, T& low, T& high)
{
    std::size_t done = 0;
#if defined(__x86_64__)
    constexpr std::size_t worthTheStart = 32;
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    if (values.size() >= worthTheStart && hasAvx2)
        done = foldAvx2(values.data(), values.size(), low, high);
#endif
    foldPlain(values.data() + done, values.size() - done, low, high);
}

} // namespace

void foldExtrema(std::span<const int> values, int& low, int& high)
{
    fold(values, low, high);
}

void foldExtrema(std::span<const float> values, float& low, float& high)
{
    fold(values, low, high);
}

void foldExtrema(std::span<const double> values, double& low, double& high)
{
    fold(values, low, high);
}

} // namespace Kvt::Mrl::MrlIO
