#include "wellresults/hmd/HMDScan.h"

#include "wellresults/MatchParameter.h"
#include "wellresults/ValueCount.h"

#include <vector>

namespace Kvt::Mrl::MrlIO {

HMDScan::HMDScan(HMDContent& content, const Service::FileName& file)
    : content_(content),
      walk_("HMDContentIndex::extractContentIndex", file, isFormattedHMD(file))
{}

void HMDScan::run()
{
    walk_.skimHeaders();
    while (walk_.next())
        meetKeyword(walk_.number(keywords_));
}

void HMDScan::meetKeyword(std::uint32_t keyword)
{
    switch (keyword) {
    case CODESTAT:
        return meetCodeState();
    case TIMESTEP:
        return meetTimeStep();
    case GRADWELL:
        content_.wellQuantities = walk_.strings();
        break;
    case GRADGRUP:
        content_.groupQuantities = walk_.strings();
        break;
    case NAMES:
        meetOwner(wells_, content_.wellNames);
        break;
    case GNAMES:
        meetOwner(groups_, content_.groupNames);
        break;
    case HMHEADI:
        content_.parameters.insert(takeParameter(walk_, pendingParameter_));
        break;
    }
    list(keyword);
}

void HMDScan::meetCodeState()
{
    const std::vector<std::string>& state = walk_.strings();
    requireValues<HMDReaderException>(walk_.name(), state.size(), 1);
    content_.isFileEncoded = state.front() == "CODED";
}

/// A time that is repeated or goes backwards adds nothing.
void HMDScan::meetTimeStep()
{
    const HMDTimeStep report = readTimeStep(walk_);
    if (!(report.time > lastTime_))
        return;
    lastTime_ = report.time;
    content_.addReport(report, walk_.header().keywordLargePos());
}

void HMDScan::meetOwner(NameSequence& known, std::set<std::string>& owners)
{
    const std::string& owner = readNames(walk_, pendingParameter_)[NamesText::owner];
    const std::uint32_t knownBefore = known.size();
    if (known.number(owner) == knownBefore)
        owners.insert(owner);
}

void HMDScan::list(std::uint32_t keyword)
{
    if (!listed_.add(keyword))
        return;
    content_.arrayNames.addArrayName(walk_.name());
    content_.arrayTypes.try_emplace(walk_.name(), walk_.header().valueType());
}

} // namespace Kvt::Mrl::MrlIO
