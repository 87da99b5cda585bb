#include "wellresults/StoredArray.h"

#include <mrlio/ValueType.h>

namespace Kvt::Mrl::MrlIO {

namespace {

template <class T>
bool readAs(MorvaneReader& reader, const KeywordHeader& header, StoredArray& array)
{
    auto values = std::make_shared<std::vector<T>>();
    if (!reader.readDataVector(header, *values))
        return false;
    array = std::move(values);
    return true;
}

} // namespace

bool readStoredArray(MorvaneReader& reader, const KeywordHeader& header, StoredArray& array)
{
    array = std::monostate();
    switch (header.valueType()) {
    case ValueType::DOUB:
        return readAs<double>(reader, header, array);
    case ValueType::REAL:
        return readAs<float>(reader, header, array);
    case ValueType::INTE:
    case ValueType::LOGI:
        return readAs<int>(reader, header, array);
    case ValueType::CHAR:
    case ValueType::MESS:
    case ValueType::C0nn:
        return readAs<std::string>(reader, header, array);
    default:
        return true;
    }
}

} // namespace Kvt::Mrl::MrlIO
