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
    /// Replaces what `wanted` holds by the converted values. Both may be the same vector. Truth values go through
    /// int and are true for each one other than 0, so an array that doesn't convert to int has none.
    /// throws MrlIOException for any other pair of types; `wanted` is empty then
    template <class S, class T>
    static void convert(const std::vector<S>& stored, std::vector<T>& wanted)
    {
        if constexpr (std::is_same_v<S, T>) {
            if (&stored != &wanted)
                wanted.assign(stored.begin(), stored.end());
        } else if constexpr (widens<S, T>) {
            wanted.assign(stored.size(), T());
            for (std::size_t i = 0; i < stored.size(); ++i)
                wanted[i] = static_cast<T>(stored[i]);
        } else {
            wanted.clear();
            failConversion(typeid(stored), typeid(std::vector<Named<T>>));
        }
    }

private:
    template <class S, class T>
    static constexpr bool widens = (std::is_same_v<S, int> && (std::is_same_v<T, float> || std::is_same_v<T, double> ||
                                                               std::is_same_v<T, bool>)) ||
                                   (std::is_same_v<S, float> && std::is_same_v<T, double>);

    /// What a failure names.
    template <class T>
    using Named = std::conditional_t<std::is_same_v<T, bool>, int, T>;

    [[noreturn]] static void failConversion(const std::type_info& stored, const std::type_info& wanted);
};

} // namespace Kvt::Mrl::MrlIO
