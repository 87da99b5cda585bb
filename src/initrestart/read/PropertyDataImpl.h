#pragma once

#include "core/Fail.h"
#include "initrestart/read/CellActivityFlags.h"
#include "initrestart/read/PropertyCoarsening.h"
#include "initrestart/read/PropertyData.h"
#include "initrestart/read/PropertyValues.h"

#include <mrlio/KeywordTmpl.h>
#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

template <ValueType::Enum V>
class PropertyDataImpl final : public PropertyData
{
public:
    using Element = typename KeywordElement<V>::type;

    explicit PropertyDataImpl(int cellCount) : PropertyData(cellCount) {}

    ValueType::Enum valueType() const override { return V; }

    bool isNumeric() const override { return std::is_arithmetic_v<Element>; }

    bool populateArray(const std::string& name, const std::string& lgr, PropertyData* fracture,
                       const ICellActivitiesInfo& activities, const IRawDataAccess& rawData,
                       const ICellCoarsenInfo* coarsen) override;
    void computeStats() override;

    bool isLoaded() const override { return data_.has_value(); }

    void release() override { data_.reset(); }

    void copyTo(std::vector<std::string>& out) const override { data_->copyTo(out); }

    void copyTo(std::vector<int>& out) const override { data_->copyTo(out); }

    void copyTo(std::vector<float>& out) const override { data_->copyTo(out); }

    void copyTo(std::vector<double>& out) const override { data_->copyTo(out); }

private:
    using Values = PropertyValues<Element>;
    using Flags = std::shared_ptr<const CellActivityFlags>;

    static PropertyDataImpl* sameType(PropertyData* fracture);

    std::size_t cells() const { return static_cast<std::size_t>(std::max(0, cellCount())); }

    void takeAllCells(std::vector<Element> raw, PropertyDataImpl* fracture, const ICellCoarsenInfo* coarsen);
    void takeActiveCells(std::vector<Element> raw, PropertyDataImpl* fracture, const ICellActivitiesInfo& activities,
                         const ICellCoarsenInfo* coarsen);

    std::optional<Values> data_;
};

/// The first `count` values, which `values` loses.
template <class T>
std::vector<T> takeFront(std::vector<T>& values, std::size_t count)
{
    if (count == values.size())
        return std::exchange(values, {});
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(count);
    std::vector<T> front(std::make_move_iterator(values.begin()), std::make_move_iterator(middle));
    values = std::vector<T>(std::make_move_iterator(middle), std::make_move_iterator(values.end()));
    return front;
}

/// One value per cell, with the groups of the medium filled.
template <class T>
PropertyValues<T> coarsened(std::vector<T> values, const ICellCoarsenInfo* coarsen, bool isFracture)
{
    spreadCoarsened(values, coarsen, isFracture);
    return PropertyValues<T>(std::move(values));
}

/// The same for one value per active cell. These are spread over the cells only where groups are to be filled.
template <class T>
PropertyValues<T> coarsened(std::vector<T> values, std::shared_ptr<const CellActivityFlags> active,
                            const ICellCoarsenInfo* coarsen, bool isFracture)
{
    PropertyValues<T> ofActiveCells(std::move(values), std::move(active));
    if (coarsen == nullptr || coarsen->numGroups() == 0)
        return ofActiveCells;
    std::vector<T> ofAllCells;
    ofActiveCells.copyTo(ofAllCells);
    return coarsened(std::move(ofAllCells), coarsen, isFracture);
}

template <ValueType::Enum V>
bool PropertyDataImpl<V>::populateArray(const std::string& name, const std::string& lgr, PropertyData* fracture,
                                        const ICellActivitiesInfo& activities, const IRawDataAccess& rawData,
                                        const ICellCoarsenInfo* coarsen)
{
    std::vector<Element> raw;
    if (!rawData.getAnyArray(name, raw, lgr))
        return false;
    PropertyDataImpl* const other = sameType(fracture);
    // Of the arrays with a value for each cell, only pore volumes have none where a group's other cells are.
    if (raw.size() == cells() * (other != nullptr ? 2 : 1))
        takeAllCells(std::move(raw), other, name == "PORV" ? coarsen : nullptr);
    else
        takeActiveCells(std::move(raw), other, activities, coarsen);
    return true;
}

template <ValueType::Enum V>
PropertyDataImpl<V>* PropertyDataImpl<V>::sameType(PropertyData* fracture)
{
    auto* const same = dynamic_cast<PropertyDataImpl*>(fracture);
    if (fracture != nullptr && same == nullptr)
        fail<RestartReaderException>("PropertyDataImpl::populateArray", ": fracture_data is of wrong type");
    return same;
}

template <ValueType::Enum V>
void PropertyDataImpl<V>::takeAllCells(std::vector<Element> raw, PropertyDataImpl* fracture,
                                       const ICellCoarsenInfo* coarsen)
{
    Values matrix = coarsened(takeFront(raw, cells()), coarsen, false);
    if (fracture != nullptr)
        fracture->data_ = coarsened(std::move(raw), coarsen, true);
    data_ = std::move(matrix);
}

template <ValueType::Enum V>
void PropertyDataImpl<V>::takeActiveCells(std::vector<Element> raw, PropertyDataImpl* fracture,
                                          const ICellActivitiesInfo& activities, const ICellCoarsenInfo* coarsen)
{
    const Flags active = CellActivityFlags::of(activities, false);
    const Flags activeFracture = CellActivityFlags::of(activities, true);
    const auto count = std::ssize(raw);
    const auto flagCount = static_cast<std::int64_t>(cells());
    // The flags bear out the number of cells too, which else is a header's word only.
    if (count != active->count() + activeFracture->count() || active->size() != flagCount ||
        (fracture != nullptr && activeFracture->size() != flagCount))
        fail<RestartReaderException>("", "Number of active cells does not match property data");
    Values matrix = coarsened(takeFront(raw, static_cast<std::size_t>(active->count())), active, coarsen, false);
    if (fracture != nullptr)
        fracture->data_ = coarsened(std::move(raw), activeFracture, coarsen, true);
    data_ = std::move(matrix);
}

template <ValueType::Enum V>
void PropertyDataImpl<V>::computeStats()
{
    if constexpr (std::is_arithmetic_v<Element>) {
        if (hasStats() || !data_)
            return;
        bool any = false;
        Element low{};
        Element high{};
        for (const Element value : data_->values()) {
            if (value == fillValue<Element>())
                continue;
            low = !any || value < low ? value : low;
            high = !any || value > high ? value : high;
            any = true;
        }
        if (any)
            setStats(low, high);
    }
}

} // namespace Kvt::Mrl::MrlIO
