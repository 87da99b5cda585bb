#include "wellresults/grft/GRFTReaderImpl.h"

#include "core/Fail.h"

#include <memory>
#include <set>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

GRFTArrayNamesCollections namesOfBoth(const GRFTArrayNamesCollections& one, const GRFTArrayNamesCollections& other)
{
    GRFTArrayNamesCollections both;
    for (std::size_t category = 0; category < GRFTArrayNameCategorizer::categoryCount; ++category) {
        const std::set<std::string>& names = other.names(category);
        for (const std::string& name : one.names(category)) {
            if (names.contains(name))
                both.addArrayName(name, static_cast<GRFTArrayNameCategorizer::CategoryType>(category));
        }
    }
    return both;
}

} // namespace

const std::vector<GRFTParameter>& GRFTReaderImpl::parameters()
{
    if (!parameters_) {
        std::vector<GRFTParameter> parameters;
        for (const auto& parameter : index().parameters())
            parameters.push_back(*parameter);
        parameters_ = std::move(parameters);
    }
    return *parameters_;
}

const GRFTArrayNamesCollections& GRFTReaderImpl::arrayNames(const GRFTParameter& parameter, const std::string& well)
{
    const GRFTParameterInfo* parameterInfo = index().parameterInfo(parameter);
    // A well without a name can't be asked for: here it is every well.
    const GRFTWellInfo* wellInfo = well.empty() ? nullptr : index().wellInfo(well);
    if (parameterInfo && wellInfo) {
        thread_local GRFTArrayNamesCollections both;
        return both = namesOfBoth(parameterInfo->arrayNames, wellInfo->arrayNames);
    }
    if (parameterInfo)
        return parameterInfo->arrayNames;
    return wellInfo ? wellInfo->arrayNames : index().arrayNames();
}

const GRFTWellInfo& GRFTReaderImpl::wellInfo(const char* where, const std::string& well)
{
    const GRFTWellInfo* info = index().wellInfo(well);
    if (!info)
        fail<std::invalid_argument>(where, ": unknown well ", well);
    return *info;
}

int GRFTReaderImpl::getNCON(const std::string& well, std::size_t index)
{
    const auto positions = loader().getArrayOfType<int>("CONIPOS", GRFTParameter(), well, index);
    return positions ? static_cast<int>(positions->size()) : -1;
}

void GRFTReaderImpl::forgetAnswers()
{
    forgetDates();
    parameters_.reset();
}

} // namespace Kvt::Mrl::MrlIO
