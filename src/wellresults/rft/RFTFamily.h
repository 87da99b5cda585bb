#pragma once

#include "wellresults/DatedContent.h"
#include "wellresults/rft/RFTArrayNameCategorizer.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

namespace Kvt::Mrl::MrlIO {

/// What tells files of well test results from the other files of dated reports; see DatedContent and DatedDataLoader.
struct RFTFamily
{
    using Exception = RFTReaderException;
    using Categorizer = RFTArrayNameCategorizer;

    static constexpr const char* indexClass = "RFTContentIndex";
    static constexpr const char* addWellName = "RFTContentIndex::addWell";
    static constexpr const char* scanName = "RFTContentIndex::extractContentIndex";
    static constexpr float timeBeforeFirst = -999.9F;
    static constexpr const char* wellTypeElement = "wellType";

    static constexpr const char* loadName = "RFTDataLoaderIncremental::loadData";
    static constexpr const char* readName = "RFTDataLoaderIncremental::readDataVector";
    static constexpr const char* typeName = "RFTDataLoaderIncremental::getArrayOfType";

    static bool isFormatted(const Service::FileName& file)
    {
        return FileIdentifiers::RFT::isFormatted(file.GetFileName());
    }

    static float lastTimeOf(float time) { return time; }
};

using RFTWellInfo = WellInfo<RFTArrayNameCategorizer>;

} // namespace Kvt::Mrl::MrlIO
