#pragma once

#include <string>
#include <string_view>
#include <utility>

/// \file
/// The labels of an enumeration. An enumeration is a class `X` with a nested plain `Enum` and a static operation
/// `EnumInfos()` that gives the pairs of value and label in a fixed order.

namespace Kvt::Mrl::Core::Service {

/// One value of the enumeration X (`first`) with its text label (`second`).
template <class X>
using EnumInfo = std::pair<typename X::Enum, std::string>;

/// Finds the value whose label is `label`, letter case and length included. The first match wins.
/// Returns false, with `out` untouched, if no value has that label.
template <class X>
bool findEnum(std::string_view label, typename X::Enum& out)
{
    for (const auto& info : X::EnumInfos()) {
        if (info.second == label) {
            out = info.first;
            return true;
        }
    }
    return false;
}

/// Finds the label of `value`. The first match wins.
/// Returns false, with `out` untouched, if the value has no label.
template <class X>
bool findLabel(typename X::Enum value, std::string& out)
{
    for (const auto& info : X::EnumInfos()) {
        if (info.first == value) {
            out = info.second;
            return true;
        }
    }
    return false;
}

} // namespace Kvt::Mrl::Core::Service
