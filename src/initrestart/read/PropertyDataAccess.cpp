#include "initrestart/read/PropertyDataAccess.h"

#include "initrestart/read/PropertyData.h"
#include "initrestart/read/RawDataAccess.h"

#include <mrlio/HiddenRestartProps.h>

#include <cstddef>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

const Properties& noProperties()
{
    static const Properties none;
    return none;
}

/// Whether an array has one value for each cell or each active cell of its grid.
bool isProperty(const ArrayInfo& info, int arraySize, int activeCells)
{
    const int size = info.getSize();
    return size >= 0 && (size == arraySize || size == activeCells) && info.getType() != ValueType::MESS &&
           !HiddenRestartProps::isNotAPropertyArray(info.getName());
}

void describe(BasicArrayInfo& out, const std::string& name, const PropertyData& property)
{
    out.setName(name);
    out.setType(property.valueType());
    out.setSize(property.cellCount());
}

} // namespace

PropertyDataAccess::PropertyDataAccess(const IRawDataAccess& rawData, const RestartReaderEnvironment& environment)
    : rawData_(rawData),
      environment_(environment)
{}

const Properties& PropertyDataAccess::properties(const std::string& lgr) const
{
    const auto known = properties_.find(lgr);
    if (known != properties_.end())
        return known->second;
    const SpecStatsData& rows = rawData_.arrays(lgr);
    if (rows.names.empty())
        return noProperties();
    return properties_.emplace(lgr, build(rows, lgr)).first->second;
}

bool PropertyDataAccess::hasProperty(const std::string& name, const std::string& lgr) const
{
    return find(name, lgr) != nullptr;
}

bool PropertyDataAccess::getArrayInfo(const std::string& name, BasicArrayInfo& out, const std::string& lgr,
                                      bool fracture) const
{
    const PropertyData* const property = find(name, lgr, fracture);
    if (property != nullptr)
        describe(out, name, *property);
    return property != nullptr;
}

bool PropertyDataAccess::getArrayInfo(const std::string& name, ArrayInfo& out, const std::string& lgr,
                                      bool fracture) const
{
    PropertyData* const property = find(name, lgr, fracture);
    if (property == nullptr)
        return false;
    if (!property->hasStats() && load(name, lgr))
        property->computeStats();
    describe(out, name, *property);
    out.setMin(property->min());
    out.setMax(property->max());
    return true;
}

bool PropertyDataAccess::getAnyArray(const std::string& name, std::vector<std::string>& out, const std::string& lgr,
                                     bool fracture) const
{
    return getArray(name, out, lgr, fracture);
}

bool PropertyDataAccess::getAnyArray(const std::string& name, std::vector<int>& out, const std::string& lgr,
                                     bool fracture) const
{
    return getArray(name, out, lgr, fracture);
}

bool PropertyDataAccess::getAnyArray(const std::string& name, std::vector<float>& out, const std::string& lgr,
                                     bool fracture) const
{
    return getArray(name, out, lgr, fracture);
}

bool PropertyDataAccess::getAnyArray(const std::string& name, std::vector<double>& out, const std::string& lgr,
                                     bool fracture) const
{
    return getArray(name, out, lgr, fracture);
}

template <class T>
bool PropertyDataAccess::getArray(const std::string& name, std::vector<T>& out, const std::string& lgr,
                                  bool fracture) const
try {
    const PropertyData* const property = find(name, lgr, fracture);
    const bool loaded = property != nullptr && load(name, lgr);
    // What stands in the vector isn't cleared, since writing over it is faster.
    if (loaded)
        property->copyTo(out);
    else
        out.clear();
    return loaded;

} catch (...) {
    out.clear();
    throw;
}

/// Null for an unknown property.
const PropertyDataAccess::Entry* PropertyDataAccess::find(const std::string& name, const std::string& lgr) const
{
    const auto& entries = properties(lgr).entries_;
    const auto found = entries.find(name);
    return found != entries.end() ? &found->second : nullptr;
}

/// Null also for the fracture of a grid without dual porosity.
PropertyData* PropertyDataAccess::find(const std::string& name, const std::string& lgr, bool fracture) const
{
    const Entry* const entry = find(name, lgr);
    if (entry == nullptr)
        return nullptr;
    return fracture ? entry->fracture.get() : entry->matrix.get();
}

Properties PropertyDataAccess::build(const SpecStatsData& rows, const std::string& lgr) const
{
    const ITimeInvariantData& data = environment_.timeInvariantData->getTimeInvariantData();
    const int arraySize = data.arraySize(lgr);
    const int activeCells = data.activeCells(lgr);
    const int cells = data.numCells(lgr);
    Properties made;
    for (std::size_t row = 0; row < rows.names.size(); ++row) {
        const ArrayInfo info = arrayInfoOf(rows, row);
        if (!isProperty(info, arraySize, activeCells) || made.entries_.count(info.getName()) != 0)
            continue;
        Entry& entry = made.entries_[info.getName()];
        made.names_.push_back(info.getName());
        entry.matrix = PropertyData::create(info, cells, true);
        if (data.isDualPorosity())
            entry.fracture = PropertyData::create(info, cells, true);
    }
    return made;
}

/// Sees to it that the values are in memory. False if the step doesn't have them after all.
bool PropertyDataAccess::load(const std::string& name, const std::string& lgr) const
{
    const Entry& entry = *find(name, lgr);
    if (entry.matrix->isLoaded())
        return true;
    const ICellActivitiesInfo& activities = environment_.cellActivities->getCellActivitiesInfo(lgr);
    const ICellCoarsenInfo* const coarsen =
        environment_.cellCoarsening != nullptr ? environment_.cellCoarsening->getCellCoarsenInfo(lgr) : nullptr;
    if (!entry.matrix->populateArray(name, lgr, entry.fracture.get(), activities, rawData_, coarsen))
        return false;
    environment_.cache->add(entry.matrix, entry.fracture);
    return true;
}

} // namespace Kvt::Mrl::MrlIO
