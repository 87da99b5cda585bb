#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Array names sorted into the categories of a family of files, each in byte order.
///
/// Categorizer tells the family:
///     enum CategoryType : int                   the categories, from 0 on
///     static CategoryType categoryPriv(name)    the category of a name
///     categoryCount                             how many categories there are; as a category it means Auto
///     cacheElements                             the element of each category in the family's cache
///     collectionsName                           what failures call the collections
///     Exception                                 what they throw
template <class Categorizer>
class ArrayNamesCollections
{
public:
    using CategoryType = typename Categorizer::CategoryType;

    /// Stands for the category that the name itself tells.
    static constexpr auto Auto = static_cast<CategoryType>(Categorizer::categoryCount);

    /// throws   Categorizer::Exception for a category that isn't one
    void addArrayName(const std::string& name, CategoryType category = Auto)
    {
        if (category == Auto)
            category = Categorizer::categoryPriv(name);
        const auto place = static_cast<std::size_t>(category);
        if (place >= names_.size())
            throw typename Categorizer::Exception(std::string(Categorizer::collectionsName) +
                                                  "::addArrayName: unhandled array type " + std::to_string(category));
        names_[place].insert(names_[place].end(), name);
    }

    /// category   0 or above, below the count
    const std::set<std::string>& names(std::size_t category) const { return names_[category]; }

private:
    std::array<std::set<std::string>, Categorizer::categoryCount> names_;
};

} // namespace Kvt::Mrl::MrlIO
