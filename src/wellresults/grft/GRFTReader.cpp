#include <mrlio/GRFTReader.h>

#include "wellresults/grft/GRFTReaderImpl.h"

namespace Kvt::Mrl::MrlIO {

namespace {

std::vector<std::string> listOf(const std::set<std::string>& names)
{
    return {names.begin(), names.end()};
}

} // namespace

GRFTReader::GRFTReader() : impl_(std::make_unique<GRFTReaderImpl>()) {}

GRFTReader::~GRFTReader() = default;

void GRFTReader::read(const std::string& fileName)
{
    impl_->read(fileName);
}

Service::FileName GRFTReader::GRFTFile() const
{
    return impl_->file();
}

const std::vector<std::string>& GRFTReader::wells() const
{
    return impl_->wells();
}

const std::vector<GRFTParameter>& GRFTReader::parameters() const
{
    return impl_->parameters();
}

const std::vector<Service::YearMonthDay>& GRFTReader::dates() const
{
    return impl_->index().dates();
}

const std::vector<float>& GRFTReader::times() const
{
    return impl_->index().times();
}

const std::string& GRFTReader::getLGR(const std::string& well) const
{
    return impl_->wellInfo("GRFTReader::getLGR", well).lgr;
}

WellModelType::Enum GRFTReader::wellType(const std::string& well) const
{
    return impl_->wellInfo("GRFTReader::wellType", well).type;
}

ValueType::Enum GRFTReader::arrayValueType(const std::string& array) const
{
    return impl_->index().arrayValueType(array);
}

const std::set<std::string>& GRFTReader::basicData(const GRFTParameter& parameter, const std::string& well) const
{
    return impl_->arrayNames(parameter, well).names(GRFTArrayNameCategorizer::BasicData);
}

const std::set<std::string>& GRFTReader::gradients(const GRFTParameter& parameter, const std::string& well) const
{
    return impl_->arrayNames(parameter, well).names(GRFTArrayNameCategorizer::Gradients);
}

std::vector<std::string> GRFTReader::basicDataNames(const GRFTParameter& parameter, const std::string& well) const
{
    return listOf(basicData(parameter, well));
}

std::vector<std::string> GRFTReader::gradientsNames(const GRFTParameter& parameter, const std::string& well) const
{
    return listOf(gradients(parameter, well));
}

#define MRLIO_GET_ARRAY(Type)                                                                                          \
    bool GRFTReader::getArray(const std::string& array, const GRFTParameter& parameter, const std::string& well,       \
                              const Service::YearMonthDay& date, std::vector<Type>& values) const                      \
    {                                                                                                                  \
        return impl_->atDate(date, false,                                                                              \
                             [&](std::size_t index) { return getArray(array, parameter, well, index, values); });      \
    }                                                                                                                  \
    bool GRFTReader::getArray(const std::string& array, const GRFTParameter& parameter, const std::string& well,       \
                              std::size_t index, std::vector<Type>& values) const                                      \
    {                                                                                                                  \
        return impl_->loader().getArray(array, parameter, well, index, values);                                        \
    }

MRLIO_GET_ARRAY(int)
MRLIO_GET_ARRAY(float)
MRLIO_GET_ARRAY(double)
MRLIO_GET_ARRAY(std::string)
MRLIO_GET_ARRAY(bool)
#undef MRLIO_GET_ARRAY

int GRFTReader::getNCON(const std::string& well, const Service::YearMonthDay& date) const
{
    return impl_->atDate(date, -1, [&](std::size_t index) { return getNCON(well, index); });
}

int GRFTReader::getNCON(const std::string& well, std::size_t index) const
{
    return impl_->getNCON(well, index);
}

#define MRLIO_X(accessor, position, element)                                                                           \
    const std::string& GRFTReader::accessor() const                                                                    \
    {                                                                                                                  \
        return impl_->index().unit(WellUnit::accessor);                                                                \
    }
MRLIO_WELL_UNITS(MRLIO_X)
#undef MRLIO_X

} // namespace Kvt::Mrl::MrlIO
