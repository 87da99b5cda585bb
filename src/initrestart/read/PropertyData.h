#pragma once

#include <mrlio/ArrayInfo.h>
#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ICellCoarsenInfo.h>
#include <mrlio/IRawDataAccess.h>
#include <mrlio/ValueType.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// A property of one medium, matrix or fracture, of a grid: what is known of it without reading, and its values as long
/// as they are loaded.
class PropertyData
{
public:
    /// What min() and max() are before they are known.
    static constexpr double unknown = std::numeric_limits<double>::min();

    /// withStats   whether the info's extrema are taken over
    /// throws      RestartReaderException for a type that holds no data
    static std::shared_ptr<PropertyData> create(const ArrayInfo& info, int cellCount, bool withStats);

    virtual ~PropertyData() = default;
    virtual ValueType::Enum valueType() const = 0;

    /// Whether it has extrema.
    virtual bool isNumeric() const = 0;

    /// Reads the property and gives each medium its values.
    ///
    /// fracture   the property of the fracture, null without dual porosity
    /// coarsen    null for a grid that isn't coarsened
    /// returns    false, with nothing loaded, if the step has no such array
    /// throws     RestartReaderException if the array can't be read or fits neither all nor the active cells. Nothing
    ///            is loaded then.
    virtual bool populateArray(const std::string& name, const std::string& lgr, PropertyData* fracture,
                               const ICellActivitiesInfo& activities, const IRawDataAccess& rawData,
                               const ICellCoarsenInfo* coarsen) = 0;

    /// Finds the extrema in the loaded values, if they aren't known. They stay unknown if no cell has data.
    virtual void computeStats() = 0;

    virtual bool isLoaded() const = 0;

    /// Gives back the memory of the values.
    virtual void release() = 0;

    /// The loaded values, one per cell.
    /// throws   MrlIOException for an element type that the stored one doesn't convert to; `out` is empty then
    virtual void copyTo(std::vector<std::string>& out) const = 0;
    virtual void copyTo(std::vector<int>& out) const = 0;
    virtual void copyTo(std::vector<float>& out) const = 0;
    virtual void copyTo(std::vector<double>& out) const = 0;

    /// Of this medium.
    int cellCount() const { return cellCount_; }

    double min() const { return min_; }

    double max() const { return max_; }

    bool hasStats() const { return min_ != unknown && max_ != unknown; }

protected:
    void setStats(double min, double max)
    {
        min_ = min;
        max_ = max;
    }

    explicit PropertyData(int cellCount) : cellCount_(cellCount) {}

private:
    int cellCount_;
    double min_ = unknown;
    double max_ = unknown;
};

} // namespace Kvt::Mrl::MrlIO
