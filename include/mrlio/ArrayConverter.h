#pragma once

#include <mrlio/Export.h>

#include <cstddef>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The one rule by which an array goes from the element type of its file to the one that a caller asks for: numbers
/// widen, from int to float and double and from float to double, and nothing else converts.
class MRLIO_EXPORT ArrayConverter
{
public:
    /// Replaces what `wanted` holds by the converted values. Both may be the same vector.
    /// throws MrlIOException for any other pair of types; `wanted` is empty then
    template <class S, class T>
    static void convert(const std::vector<S>& stored, std::vector<T>& wanted)
    {
        if constexpr (std::is_same_v<S, T>) {
            if (&stored == &wanted)
                return;
            wanted.clear();
            wanted.insert(wanted.end(), stored.begin(), stored.end());
        } else {
            wanted.clear();
            if constexpr (widens<S, T>) {
                wanted.resize(stored.size());
                for (std::size_t i = 0; i < stored.size(); ++i)
                    wanted[i] = static_cast<T>(stored[i]);
            } else {
                failConversion(typeid(stored), typeid(wanted));
            }
        }
    }

    /// Truth values: true for each int other than 0. An array that doesn't convert to int fails as it does there.
    template <class S>
    static void convert(const std::vector<S>& stored, std::vector<bool>& wanted)
    {
        if constexpr (std::is_same_v<S, bool>) {
            wanted = stored;
        } else if constexpr (std::is_same_v<S, int>) {
            wanted.assign(stored.size(), false);
            for (std::size_t i = 0; i < stored.size(); ++i)
                wanted[i] = stored[i] != 0;
        } else {
            wanted.clear();
            failConversion(typeid(stored), typeid(std::vector<int>));
        }
    }

private:
    template <class S, class T>
    static constexpr bool widens = (std::is_same_v<S, int> &&
                                    (std::is_same_v<T, float> || std::is_same_v<T, double>)) ||
                                   (std::is_same_v<S, float> && std::is_same_v<T, double>);

    [[noreturn]] static void failConversion(const std::type_info& stored, const std::type_info& wanted);
};

} // namespace Kvt::Mrl::MrlIO
