#pragma once

#include <span>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Gives the arrays of the time ranges of a dump. Times are days; what lies in no time range has no values. The answers
/// are true if there is at least one value. The values stay valid as long as the loader.
class IDumpfluxDataLoader
{
public:
    virtual ~IDumpfluxDataLoader() = default;

    virtual bool values(const std::string& array, double time, std::span<const double>& values) = 0;
    virtual bool wellValues(const std::string& well, const std::string& array, double time,
                            std::span<const double>& values) = 0;
};

} // namespace Kvt::Mrl::MrlIO
