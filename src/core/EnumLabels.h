#pragma once

#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// \file
/// The label tables of enumerations.

namespace Kvt::Mrl::MrlIO {

/// A table for an EnumInfos() to keep for the life of the process: the labels of the values from 0 on. It is never
/// freed, so that labels can be looked up while the process ends.
template <class X, std::size_t count>
const std::vector<Service::EnumInfo<X>>* makeEnumInfos(const std::array<std::string_view, count>& labels)
{
    auto* const infos = new std::vector<Service::EnumInfo<X>>;
    infos->reserve(count);
    for (std::size_t value = 0; value < count; ++value)
        infos->emplace_back(static_cast<typename X::Enum>(value), std::string(labels[value]));
    return infos;
}

} // namespace Kvt::Mrl::MrlIO
