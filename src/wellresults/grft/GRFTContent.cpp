#include "wellresults/grft/GRFTContent.h"

namespace Kvt::Mrl::MrlIO {

GRFTParameterInfo& GRFTContent::addParameter(const GRFTParameter& parameter)
{
    const auto [known, isNew] = places_.try_emplace(parameter, parameters_.size());
    if (isNew)
        parameters_.push_back(std::make_shared<GRFTParameterInfo>(parameter));
    return *parameters_[known->second];
}

const GRFTParameterInfo* GRFTContent::parameterInfo(const GRFTParameter& parameter) const
{
    const auto known = places_.find(parameter);
    return known == places_.end() ? nullptr : parameters_[known->second].get();
}

const GRFTWellInfo* GRFTContent::wellInfo(const std::string& well) const
{
    const auto known = wells.find(well);
    return known == wells.end() ? nullptr : known->second.get();
}

} // namespace Kvt::Mrl::MrlIO
