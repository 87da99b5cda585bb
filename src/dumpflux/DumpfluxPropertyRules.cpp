#include "dumpflux/DumpfluxPropertyRules.h"

#include "core/Fail.h"
#include "dumpflux/DumpfluxLayout.h"
#include "dumpflux/DumpfluxNames.h"
#include "dumpflux/ReserveClaimed.h"

#include <mrlio/KeywordWriter.h>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Layout = DumpfluxLayout;

constexpr const char* mustMatch =
    "The set of properties written out at each timestep must match exactly that of previous timesteps.";

/// A property of such a name would be read as that keyword.
constexpr std::array reservedNames{Layout::FLUXTYPE, Layout::RESTART,  Layout::RESTNUMB, Layout::INTEHEAD,
                                   Layout::LOGIHEAD, Layout::DOUBHEAD, Layout::INDXFLUX, Layout::ITIME,
                                   Layout::DTIME,    Layout::WELLNAME, Layout::WELLFLOW, Layout::WELLCOMP};

std::vector<std::string> namesOf(const IDumpfluxPropertiesArray& properties, int count)
{
    std::vector<std::string> names;
    reserveClaimed(names, count);
    for (int i = 0; i < count; ++i)
        names.push_back(properties.get(i).getName());
    return names;
}

void checkName(const std::string& name)
{
    const std::string read = nameAsRead(name);
    if (read.empty())
        throw std::invalid_argument("Properties must have a non-zero length name");
    KeywordWriter::validateKeywordName(name);
    if (std::find(reservedNames.begin(), reservedNames.end(), read) != reservedNames.end())
        fail<std::invalid_argument>("Invalid keyword name: ", name);
}

} // namespace

std::vector<std::string> DumpfluxPropertyRules::check(const IDumpfluxPropertiesArray& properties)
{
    const int count = properties.size();
    if (count <= 0)
        throw std::invalid_argument("No properties to write");
    std::vector<std::string> names = namesOf(properties, count);
    checkSet(names);
    for (int i = 0; i < count; ++i)
        checkOne(properties.get(i), names[static_cast<std::size_t>(i)]);
    return names;
}

void DumpfluxPropertyRules::checkSet(const std::vector<std::string>& names) const
{
    if (!names_.empty()) {
        if (names.size() != names_.size())
            throw std::invalid_argument(mustMatch);
        for (const std::string& name : names)
            if (std::find(names_.begin(), names_.end(), name) == names_.end())
                fail<std::invalid_argument>(mustMatch, " Property ", name, " not written out previously.");
    }
    std::set<std::string> distinct;
    for (const std::string& name : names)
        if (!distinct.insert(nameAsRead(name)).second)
            throw std::invalid_argument(mustMatch);
}

void DumpfluxPropertyRules::checkOne(const IDumpfluxPropertyArray& property, const std::string& name)
{
    const int length = property.size();
    if (length <= 0)
        fail<std::invalid_argument>("Property array ", name, " has no values");
    if (length_ < 0)
        length_ = length;
    checkLength(property);
    checkName(name);
}

void DumpfluxPropertyRules::checkLength(const IDumpfluxPropertyArray& property) const
{
    if (property.size() != length_)
        throw std::invalid_argument("All property arrays must be the same length");
}

void DumpfluxPropertyRules::accept(std::vector<std::string>&& names) noexcept
{
    if (names_.empty())
        names_ = std::move(names);
}

} // namespace Kvt::Mrl::MrlIO
