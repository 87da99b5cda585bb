#pragma once

#include <mrlio/IDumpfluxPropertiesArray.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What makes the properties of each block of a file agree with those of the others.
class DumpfluxPropertyRules
{
public:
    /// Gives the names in the order of the call. The number of values of the first property that has some is kept from
    /// then on, whatever comes of the block.
    /// throws   std::invalid_argument for properties that the file can't take
    std::vector<std::string> check(const IDumpfluxPropertiesArray& properties);

    /// The block with these names is written.
    void accept(std::vector<std::string>&& names) noexcept;

    /// Number of values of every property; -1 until known.
    int length() const { return length_; }

    /// throws   std::invalid_argument if the property has another number of values
    void checkLength(const IDumpfluxPropertyArray& property) const;

private:
    void checkSet(const std::vector<std::string>& names) const;
    void checkOne(const IDumpfluxPropertyArray& property, const std::string& name);

    int length_ = -1;
    std::vector<std::string> names_; // of the blocks written; empty before the first
};

} // namespace Kvt::Mrl::MrlIO
