#include <mrlio/HMDReader.h>

#include "wellresults/hmd/HMDKeywords.h"
#include "wellresults/hmd/HMDReaderImpl.h"

#include <cstddef>
#include <set>

namespace Kvt::Mrl::MrlIO {

namespace {

std::vector<std::string> arrayNames(HMDReaderImpl& impl, HMDArrayNameCategorizer::CategoryType category)
{
    const std::set<std::string>& names = impl.content().arrayNames.names(static_cast<std::size_t>(category));
    return {names.begin(), names.end()};
}

} // namespace

HMDReader::HMDReader() : impl_(std::make_unique<HMDReaderImpl>()) {}

HMDReader::~HMDReader() = default;

void HMDReader::read(const std::string& fileName)
{
    impl_->read(fileName);
}

Service::FileName HMDReader::HMDFile() const
{
    return impl_->file();
}

bool HMDReader::isFileEncoded() const
{
    return impl_->content().isFileEncoded;
}

bool HMDReader::isSinglePrecision() const
{
    return impl_->index().arrayValueType(HMDKeyword::DERIVS) == ValueType::REAL;
}

bool HMDReader::isWithoutValues() const
{
    return !impl_->content().arrayTypes.contains(HMDKeyword::VALUES);
}

const std::vector<double>& HMDReader::times() const
{
    return impl_->content().times;
}

const std::vector<double>& HMDReader::timeSteps() const
{
    return impl_->content().timeSteps;
}

const std::vector<HMDParameter>& HMDReader::parameters() const
{
    return impl_->parameters();
}

const std::vector<std::string>& HMDReader::wellNames() const
{
    return impl_->wellNames();
}

const std::vector<std::string>& HMDReader::groupNames() const
{
    return impl_->groupNames();
}

const std::vector<std::string>& HMDReader::wellQuantities() const
{
    return impl_->content().wellQuantities;
}

const std::vector<std::string>& HMDReader::groupQuantities() const
{
    return impl_->content().groupQuantities;
}

std::vector<std::string> HMDReader::preambleArrayNames() const
{
    return arrayNames(*impl_, HMDArrayNameCategorizer::Preamble);
}

std::vector<std::string> HMDReader::variableArrayNames() const
{
    return arrayNames(*impl_, HMDArrayNameCategorizer::Variable);
}

std::vector<std::string> HMDReader::gradientArrayNames() const
{
    return arrayNames(*impl_, HMDArrayNameCategorizer::Gradient);
}

ValueType::Enum HMDReader::arrayValueType(const std::string& array) const
{
    return impl_->index().arrayValueType(array);
}

bool HMDReader::getArray(const std::string& array, std::vector<int>& values) const
{
    return impl_->loader().getArray(array, values);
}

bool HMDReader::getArray(const std::string& array, std::vector<std::string>& values) const
{
    return impl_->loader().getArray(array, values);
}

bool HMDReader::getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                         std::size_t timeIndex, std::vector<int>& values) const
{
    return impl_->loader().getArray(array, parameter, name, timeIndex, values);
}

bool HMDReader::getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                         std::size_t timeIndex, std::vector<float>& values) const
{
    return impl_->loader().getArray(array, parameter, name, timeIndex, values);
}

bool HMDReader::getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                         std::size_t timeIndex, std::vector<double>& values) const
{
    return impl_->loader().getArray(array, parameter, name, timeIndex, values);
}

bool HMDReader::getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                         std::size_t timeIndex, std::vector<std::string>& values) const
{
    return impl_->loader().getArray(array, parameter, name, timeIndex, values);
}

} // namespace Kvt::Mrl::MrlIO
