#pragma once

#include "wellresults/DatedContent.h"
#include "wellresults/grft/GRFTArrayNameCategorizer.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

namespace Kvt::Mrl::MrlIO {

/// What tells gradient files from the other files of dated reports; see DatedContent and DatedDataLoader.
struct GRFTFamily
{
    using Exception = GRFTReaderException;
    using Categorizer = GRFTArrayNameCategorizer;

    static constexpr const char* indexClass = "GRFTContentIndex";
    static constexpr const char* addWellName = "GRFTContentIndex::addWell";
    static constexpr const char* scanName = "GRFTContentIndex::extractContentIndex";
    static constexpr float timeBeforeFirst = -999.999F;
    static constexpr const char* wellTypeElement = "type";

    static constexpr const char* loadName = "GRFTDataLoaderIncremental::loadData";
    static constexpr const char* readName = "GRFTDataLoaderIncremental::readDataVector";
    static constexpr const char* typeName = "GRFTDataLoaderIncremental::getArrayOfType";

    static bool isFormatted(const Service::FileName& file)
    {
        return FileIdentifiers::GRFT::isFormatted(file.GetFileName());
    }

    /// A simulator may round the time anew for each well. For negative times the limit lies below the time itself, so
    /// that the report ends at the next TIME; that is kept so.
    static float lastTimeOf(float time) { return time * 1.00001F; }
};

} // namespace Kvt::Mrl::MrlIO
