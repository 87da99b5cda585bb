#pragma once

#include <mrlio/ArrayInfo.h>
#include <mrlio/Export.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class PropertyData;

/// The grid properties of one grid: those of its arrays that have one value per cell or per active cell.
class MRLIO_EXPORT Properties
{
public:
    /// In file order, each name once.
    const std::vector<std::string>& names() const { return names_; }

private:
    friend class PropertyDataAccess;

    struct Entry
    {
        std::shared_ptr<PropertyData> matrix;
        std::shared_ptr<PropertyData> fracture; // null unless the grid has dual porosity
    };

    std::vector<std::string> names_;
    std::map<std::string, Entry> entries_;
};

/// The grid properties of an init file or of one report step, with one value per cell of the grid: I fastest, then J,
/// then K. Inactive cells of a property that is stored for active cells alone hold a fill value (the lowest finite
/// double or float, the lowest int, the empty text). In such a property, and in PORV, the cells of a coarsened group
/// all show the group's value; other properties that are stored for all cells are shown as they are.
///
/// name       the property's name
/// lgr        the local grid, empty for the global grid
/// fracture   the values of the fracture instead of those of the matrix; only grids with dual porosity have them
///
/// Loaded properties stay in memory until the reader's property limit releases them. Listing reads no property. An
/// access belongs to the reader that gave it, lives as long, and is used by one thread. The order of the virtual
/// operations is part of the interface.
class MRLIO_EXPORT IPropertyDataAccess
{
public:
    /// Empty for an unknown grid.
    virtual const Properties& properties(const std::string& lgr = {}) const = 0;

    virtual bool hasProperty(const std::string& name, const std::string& lgr = {}) const = 0;

    /// Name and type, and the grid's cell count as size. False, with `out` as it was, for an unknown property.
    virtual bool getArrayInfo(const std::string& name, BasicArrayInfo& out, const std::string& lgr = {},
                              bool fracture = false) const = 0;

    /// The same with the extrema. Those of the index serve for matrix and fracture alike. Where one of these is
    /// 2.2250738585072014e-308, which stands for none, the property is loaded to find them; they stay so if no cell has
    /// data.
    /// throws   RestartReaderException if the property can't be loaded
    virtual bool getArrayInfo(const std::string& name, ArrayInfo& out, const std::string& lgr = {},
                              bool fracture = false) const = 0;

    /// One value per cell, also in a wider element type than the stored one: INTE and LOGI as int, float and double,
    /// REAL as float and double, DOUB as double, strings as strings. Fill values are converted like any other.
    ///
    /// out      its content is replaced; empty after a failure
    /// returns  false for an unknown property, and for fracture values of a grid without dual porosity
    /// throws   RestartReaderException if the property can't be loaded, MrlIOException for a type that isn't converted
    virtual bool getAnyArray(const std::string& name, std::vector<std::string>& out, const std::string& lgr = {},
                             bool fracture = false) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<int>& out, const std::string& lgr = {},
                             bool fracture = false) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<float>& out, const std::string& lgr = {},
                             bool fracture = false) const = 0;
    virtual bool getAnyArray(const std::string& name, std::vector<double>& out, const std::string& lgr = {},
                             bool fracture = false) const = 0;

    virtual ~IPropertyDataAccess() = default;
};

} // namespace Kvt::Mrl::MrlIO
