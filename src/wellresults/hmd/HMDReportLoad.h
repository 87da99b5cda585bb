#pragma once

#include "wellresults/StoredArrays.h"
#include "wellresults/hmd/HMDIndexers.h"
#include "wellresults/hmd/HMDKeywords.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <optional>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The walk that reads the arrays of one report, or of the preamble.
class HMDReportLoad
{
public:
    /// throws   HMDReaderException if there is no such file or it doesn't begin with a keyword
    HMDReportLoad(const Service::FileName& file, HMDIndexers& indexers);

    /// Reads what lies ahead of the first TIMESTEP, whatever its time.
    void loadPreamble(StoredArrays& arrays);

    /// Reads from a TIMESTEP on, up to the next one with a later time.
    /// throws   HMDReaderException if there is no TIMESTEP at that place
    void loadReport(std::int64_t offset, double time, StoredArrays& arrays);

private:
    /// The names of a well or a group, until the parameter to which they belong is known.
    struct HeldNames
    {
        const char* keyword;
        int owner = -1;
        StoredArray names{}; // nothing if none are held
    };

    void loadUntil(std::optional<double> time, StoredArrays& arrays);
    void holdNames(HeldNames& held);
    void startParameter(StoredArrays& arrays);
    void storeHeld(HeldNames& held, StoredArrays& arrays);

    HMDWalk walk_;
    HMDIndexers& indexers_;
    int parameter_ = -1;
    int owner_ = -1;
    std::string pendingParameter_;
    HeldNames wellNames_{.keyword = HMDKeyword::NAMES};
    HeldNames groupNames_{.keyword = HMDKeyword::GNAMES};
};

} // namespace Kvt::Mrl::MrlIO
