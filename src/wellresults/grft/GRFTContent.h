#pragma once

#include "wellresults/DatedContent.h"
#include "wellresults/grft/GRFTFamily.h"

#include <mrlio/GRFTParameter.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

using GRFTWellInfo = WellInfo<GRFTArrayNameCategorizer>;

/// A parameter, and the arrays that it has for any well at any date.
struct GRFTParameterInfo : GRFTParameter
{
    explicit GRFTParameterInfo(const GRFTParameter& parameter) : GRFTParameter(parameter) {}

    GRFTArrayNamesCollections arrayNames;
};

/// What a gradient file holds: reports, wells and arrays, and besides them parameters.
class GRFTContent : public DatedContent<GRFTFamily>
{
public:
    /// In the order in which they were added.
    const std::vector<std::shared_ptr<GRFTParameterInfo>>& parameters() const { return parameters_; }

    /// What is there for that parameter. A new one goes to the end.
    GRFTParameterInfo& addParameter(const GRFTParameter& parameter);

    /// Null for an unknown one.
    const GRFTParameterInfo* parameterInfo(const GRFTParameter& parameter) const;
    const GRFTWellInfo* wellInfo(const std::string& well) const;

private:
    std::vector<std::shared_ptr<GRFTParameterInfo>> parameters_;
    std::map<GRFTParameter, std::size_t> places_; // in parameters_
};

} // namespace Kvt::Mrl::MrlIO
