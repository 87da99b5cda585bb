#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The kinds of elements that a keyword can hold.
///
/// The value 8, one past X231, has no label and means that no type is set.
class MRLIO_EXPORT ValueType
{
public:
    enum Enum : int
    {
        DOUB, ///< IEEE 64-bit numbers
        REAL, ///< IEEE 32-bit numbers
        INTE, ///< 32-bit integers
        LOGI, ///< truth values, kept as the stored 32-bit integers
        CHAR, ///< strings of 8 characters
        MESS, ///< messages
        C0nn, ///< strings of a width of their own, which takes the place of nn in files: C016
        X231  ///< no data: the first of the two headers of an array of 2147483648 elements or more
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<ValueType>>& EnumInfos();
};

/// The kind of a keyword's elements, and their width where the kind leaves it open. A plain value.
class MRLIO_EXPORT ValueTypeInfo
{
public:
    /// No type set, no width.
    ValueTypeInfo() = default;

    /// intData   the element width in bytes for C0nn, -1 for all other kinds; not checked
    ValueTypeInfo(ValueType::Enum type, int intData) : type_(type), intData_(intData) {}

    /// Parses a type text in any letter case: a label, or C0 and one or two digits, which may carry a sign.
    /// throws MrlIOException for any other text, the label C0nn itself included
    explicit ValueTypeInfo(const std::string& text);

    ValueType::Enum type() const { return type_; }

    void type(ValueType::Enum type) { type_ = type; }

    int intData() const { return intData_; }

    void intData(int intData) { intData_ = intData; }

private:
    ValueType::Enum type_ = static_cast<ValueType::Enum>(8);
    int intData_ = -1;
};

} // namespace Kvt::Mrl::MrlIO
