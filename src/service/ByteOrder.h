#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Kvt::Mrl::Core::Service::ByteOrder {
static_assert(std::endian::native == std::endian::little || std::endian::native == std::endian::big);

/// The number whose bytes stand in the other order.
inline std::uint32_t reversed(std::uint32_t value)
{
    return __builtin_bswap32(value);
}

inline std::uint64_t reversed(std::uint64_t value)
{
    return __builtin_bswap64(value);
}

/// The number whose bytes in memory are those of value in big-endian order, and back.
template <typename Unsigned>
Unsigned bigEndian(Unsigned value)
{
    if constexpr (std::endian::native == std::endian::big)
        return value;
    else
        return reversed(value);
}

/// Big-endian numbers from and to memory at any address.
inline std::int32_t loadInt32(const char* bytes)
{
    std::uint32_t value;
    std::memcpy(&value, bytes, sizeof value);
    return std::bit_cast<std::int32_t>(bigEndian(value));
}

inline void storeInt32(char* bytes, std::int32_t number)
{
    const auto value = bigEndian(std::bit_cast<std::uint32_t>(number));
    std::memcpy(bytes, &value, sizeof value);
}

inline std::int64_t loadInt64(const char* bytes)
{
    std::uint64_t value;
    std::memcpy(&value, bytes, sizeof value);
    return std::bit_cast<std::int64_t>(bigEndian(value));
}

inline void storeInt64(char* bytes, std::int64_t number)
{
    const auto value = bigEndian(std::bit_cast<std::uint64_t>(number));
    std::memcpy(bytes, &value, sizeof value);
}

inline float loadFloat32(const char* bytes)
{
    return std::bit_cast<float>(loadInt32(bytes));
}

inline void storeFloat32(char* bytes, float number)
{
    storeInt32(bytes, std::bit_cast<std::int32_t>(number));
}

inline double loadFloat64(const char* bytes)
{
    return std::bit_cast<double>(loadInt64(bytes));
}

inline void storeFloat64(char* bytes, double number)
{
    storeInt64(bytes, std::bit_cast<std::int64_t>(number));
}

/// Copies count numbers of 32 or 64 bits between big-endian and native order, in either direction.
/// to, from   at any address; the same place, or runs that don't overlap
/// cost       about that of a copy: vector instructions where the processor has them
void copy32(void* to, const void* from, std::size_t count);
void copy64(void* to, const void* from, std::size_t count);
} // namespace Kvt::Mrl::Core::Service::ByteOrder
