#pragma once

#include "wellresults/DatedReaderState.h"
#include "wellresults/grft/GRFTContentIndex.h"
#include "wellresults/grft/GRFTDataLoaderIncremental.h"

#include <mrlio/GRFTParameter.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The file of a reader, and what the questions about it have brought up.
class GRFTReaderImpl : public DatedReaderState<GRFTReaderImpl, GRFTContentIndex, GRFTDataLoaderIncremental>
{
public:
    const std::vector<GRFTParameter>& parameters();

    /// The arrays of parameter and well, as far as the file holds them. Those of both are put together in collections
    /// that belong to the thread.
    const GRFTArrayNamesCollections& arrayNames(const GRFTParameter& parameter, const std::string& well);

    /// throws   std::invalid_argument for an unknown well
    const GRFTWellInfo& wellInfo(const char* where, const std::string& well);

    /// -1 if the well has no CONIPOS.
    int getNCON(const std::string& well, std::size_t index);

    void forgetAnswers();

private:
    std::optional<std::vector<GRFTParameter>> parameters_;
};

} // namespace Kvt::Mrl::MrlIO
