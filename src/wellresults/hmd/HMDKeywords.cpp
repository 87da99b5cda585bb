#include "wellresults/hmd/HMDKeywords.h"

#include "wellresults/MatchParameter.h"
#include "wellresults/ValueCount.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/ValueType.h>

namespace Kvt::Mrl::MrlIO {

namespace {

template <class T>
HMDTimeStep timeStepOf(const HMDWalk& walk, const std::vector<T>& values)
{
    requireValues<HMDReaderException>(walk.name(), values.size(), 2);
    return {values[0], values[1]};
}

} // namespace

bool isFormattedHMD(const Service::FileName& file)
{
    return FileIdentifiers::HMD::isFormatted(file.GetFullName());
}

HMDTimeStep readTimeStep(HMDWalk& walk)
{
    if (walk.header().valueType() == ValueType::REAL)
        return timeStepOf(walk, walk.floats());
    return timeStepOf(walk, walk.doubles());
}

const std::vector<std::string>& readNames(HMDWalk& walk, std::string& parameter)
{
    const std::vector<std::string>& names = matchNames(walk);
    if (names[NamesText::owner].empty())
        walk.failReading(walk.name(),
                         walk.name() == HMDKeyword::NAMES ? " (undefined well name)" : " (undefined group name)");
    parameter = names[NamesText::parameter];
    return names;
}

} // namespace Kvt::Mrl::MrlIO
