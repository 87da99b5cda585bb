#include "initrestart/read/PropertyData.h"

#include "core/Fail.h"
#include "initrestart/read/PropertyDataImpl.h"

#include <mrlio/MrlIOException.h>

namespace Kvt::Mrl::MrlIO {

namespace {

template <ValueType::Enum... V>
std::shared_ptr<PropertyData> createAs(ValueType::Enum type, int cellCount)
{
    std::shared_ptr<PropertyData> made;
    ((type == V ? void(made = std::make_shared<PropertyDataImpl<V>>(cellCount)) : void()), ...);
    return made;
}

} // namespace

std::shared_ptr<PropertyData> PropertyData::create(const ArrayInfo& info, int cellCount, bool withStats)
{
    auto made = createAs<ValueType::DOUB, ValueType::REAL, ValueType::INTE, ValueType::LOGI, ValueType::CHAR,
                         ValueType::MESS, ValueType::C0nn>(info.getType(), cellCount);
    if (made == nullptr)
        fail<RestartReaderException>("Kvt::Mrl::MrlIO::PropertyData::create", ": unhandled type");
    if (withStats)
        made->setStats(info.getMin(), info.getMax());
    return made;
}

} // namespace Kvt::Mrl::MrlIO
