#pragma once

#include "support/Fuzzing.h"
#include "support/SummaryCase.h"

#include <mrlio/SimpleSummaryReader.h>
#include <mrlio/SummaryReaderEnvironment.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace MrlIOFuzz {

using Kvt::Mrl::MrlIO::ISummaryReader;
using Kvt::Mrl::MrlIO::SimpleSummaryReader;
using Kvt::Mrl::MrlIO::SummarySpecData;
using Factory = std::unique_ptr<Kvt::Mrl::MrlIO::ISummaryDataLoaderFactory>;

/// What a reader gives for each vector of the spec file; null where it gives nothing.
using SummaryValues = std::vector<std::shared_ptr<const std::vector<float>>>;

/// All values of a case, with the loader of the given factory. Empty if the files are refused.
inline SummaryValues summaryValues(const std::shared_ptr<SummarySpecData>& spec, const std::vector<std::string>& files,
                                   const std::string& directory, ISummaryReader::ContentCacheBehaviour cache,
                                   Factory factory = nullptr)
{
    SummaryValues values;
    succeeds([&] {
        Kvt::Mrl::MrlIO::SummaryReaderEnvironment::setDataAccessorFactory(std::move(factory));
        const auto reader = SimpleSummaryReader::create(spec, files, directory, "CASE", cache);
        for (const auto& id : reader->allVectorIDs())
            values.push_back(reader->getValues(id));
        for (const auto& value : values)
            require(!value || value->size() == reader->miniTimeSteps().size(), "one value per mini step");
        require(reader->timeStepDays().size() <= reader->miniTimeSteps().size(), "one time per mini step");
        require(reader->reportStepDays().size() <= reader->miniTimeSteps().size(), "no report step without mini step");
    });
    return values;
}

inline bool isSame(const std::vector<float>& a, const std::vector<float>& b)
{
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0);
}

} // namespace MrlIOFuzz
