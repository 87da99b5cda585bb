#pragma once

#include <mrlio/Export.h>
#include <mrlio/ValueType.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Name, type and length of an array. A value.
class MRLIO_EXPORT BasicArrayInfo
{
public:
    /// No name, size 0, a type of 8: no value.
    BasicArrayInfo() = default;
    BasicArrayInfo(const BasicArrayInfo&) = default;
    BasicArrayInfo(BasicArrayInfo&&) noexcept = default;
    BasicArrayInfo& operator=(const BasicArrayInfo&) = default;
    BasicArrayInfo& operator=(BasicArrayInfo&&) noexcept = default;
    virtual ~BasicArrayInfo();

    const std::string& getName() const { return name_; }

    /// Number of elements.
    int getSize() const { return size_; }

    ValueType::Enum getType() const { return type_; }

    void setName(const std::string& name) { name_ = name; }

    void setSize(int size) { size_ = size; }

    void setType(ValueType::Enum type) { type_ = type; }

private:
    std::string name_;
    ValueType::Enum type_ = static_cast<ValueType::Enum>(8);
    int size_ = 0;
};

/// The same with the array's smallest and largest value, both 0 for arrays without numbers.
class MRLIO_EXPORT ArrayInfo : public BasicArrayInfo
{
public:
    ArrayInfo() = default;

    double getMin() const { return min_; }

    double getMax() const { return max_; }

    void setMin(double min) { min_ = min; }

    void setMax(double max) { max_ = max; }

    /// Whether the array holds nothing worth showing: no elements, REAL or DOUB of which the largest is below
    /// -9.9999e+19, INTE that are -999 throughout.
    bool isNull() const;

private:
    double min_ = 0.0;
    double max_ = 0.0;
};

} // namespace Kvt::Mrl::MrlIO
