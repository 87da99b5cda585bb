#include <mrlio/RFTReader.h>

#include "wellresults/rft/RFTReaderImpl.h"

namespace Kvt::Mrl::MrlIO {

namespace {

using Category = RFTArrayNameCategorizer::CategoryType;

const std::set<std::string>& namesOf(RFTReaderImpl& impl, const std::string& well, Category category)
{
    return impl.index().arrayNames(well).names(static_cast<std::size_t>(category));
}

/// The names of the whole file, in the list that this thread has for the category.
template <Category category>
const std::vector<std::string>& namesOfFile(RFTReaderImpl& impl)
{
    thread_local std::vector<std::string> list;
    const std::set<std::string>& names = namesOf(impl, std::string(), category);
    list.assign(names.begin(), names.end());
    return list;
}

} // namespace

RFTReader::RFTReader() : impl_(std::make_unique<RFTReaderImpl>()) {}

RFTReader::~RFTReader() = default;

void RFTReader::read(const std::string& fileName)
{
    impl_->read(fileName);
}

Service::FileName RFTReader::RFTFile() const
{
    return impl_->file();
}

const std::vector<std::string>& RFTReader::wells() const
{
    return impl_->wells();
}

const std::vector<Service::YearMonthDay>& RFTReader::dates() const
{
    return impl_->index().dates();
}

const std::vector<float>& RFTReader::times() const
{
    return impl_->index().times();
}

const std::string& RFTReader::LGR(const std::string& well) const
{
    return impl_->index().wellInfo(well).lgr;
}

WellModelType::Enum RFTReader::wellType(const std::string& well) const
{
    return impl_->index().wellInfo(well).type;
}

ValueType::Enum RFTReader::arrayValueType(const std::string& array) const
{
    return impl_->index().arrayValueType(array);
}

const std::vector<std::string>& RFTReader::basicArrayNames() const
{
    return namesOfFile<Category::Basic>(*impl_);
}

const std::vector<std::string>& RFTReader::RFTArrayNames() const
{
    return namesOfFile<Category::RFT>(*impl_);
}

const std::vector<std::string>& RFTReader::PLTArrayNames() const
{
    return namesOfFile<Category::PLT>(*impl_);
}

const std::vector<std::string>& RFTReader::segmentArrayNames() const
{
    return namesOfFile<Category::Segment>(*impl_);
}

const std::set<std::string>& RFTReader::basicArrays(const std::string& well) const
{
    return namesOf(*impl_, well, Category::Basic);
}

const std::set<std::string>& RFTReader::RFTArrays(const std::string& well) const
{
    return namesOf(*impl_, well, Category::RFT);
}

const std::set<std::string>& RFTReader::PLTArrays(const std::string& well) const
{
    return namesOf(*impl_, well, Category::PLT);
}

const std::set<std::string>& RFTReader::segmentArrays(const std::string& well) const
{
    return namesOf(*impl_, well, Category::Segment);
}

#define MRLIO_GET_ARRAY(Type)                                                                                          \
    bool RFTReader::getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,     \
                             std::vector<Type>& values) const                                                          \
    {                                                                                                                  \
        return impl_->getArray(array, well, date, values);                                                             \
    }                                                                                                                  \
    bool RFTReader::getArray(const std::string& array, const std::string& well, std::size_t index,                     \
                             std::vector<Type>& values) const                                                          \
    {                                                                                                                  \
        return impl_->getArray(array, well, index, values);                                                            \
    }

MRLIO_GET_ARRAY(int)
MRLIO_GET_ARRAY(float)
MRLIO_GET_ARRAY(double)
MRLIO_GET_ARRAY(std::string)
MRLIO_GET_ARRAY(bool)
#undef MRLIO_GET_ARRAY

int RFTReader::getNCON(const std::string& well, const Service::YearMonthDay& date) const
{
    return impl_->atDate(date, -1, [&](std::size_t index) { return impl_->getNCON(well, index); });
}

int RFTReader::getNCON(const std::string& well, std::size_t index) const
{
    return impl_->getNCON(well, index);
}

int RFTReader::getNREA(const std::string& well, const Service::YearMonthDay& date) const
{
    return impl_->atDate(date, -1, [&](std::size_t index) { return impl_->getNREA(well, index); });
}

int RFTReader::getNREA(const std::string& well, std::size_t index) const
{
    return impl_->getNREA(well, index);
}

int RFTReader::getNSEG(const std::string& well, const Service::YearMonthDay& date) const
{
    return impl_->atDate(date, -1, [&](std::size_t index) { return impl_->getNSEG(well, index); });
}

int RFTReader::getNSEG(const std::string& well, std::size_t index) const
{
    return impl_->getNSEG(well, index);
}

#define MRLIO_X(accessor, position, element)                                                                           \
    const std::string& RFTReader::accessor() const                                                                     \
    {                                                                                                                  \
        return impl_->index().unit(WellUnit::accessor);                                                                \
    }
MRLIO_WELL_UNITS(MRLIO_X)
#undef MRLIO_X

} // namespace Kvt::Mrl::MrlIO
