#include "dumpflux/DumpfluxBlockWells.h"

#include "core/Fail.h"
#include "dumpflux/DumpfluxLayout.h"
#include "dumpflux/DumpfluxNames.h"
#include "dumpflux/ReserveClaimed.h"

#include <mrlio/KeywordTmpl.h>

#include <algorithm>
#include <set>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

/// The rates of a well are fetched with it, since it may point to objects that the next one uses again.
DumpfluxBlockWells::DumpfluxBlockWells(const IDumpfluxWellDataArray& wells, int componentsPerWell)
    : componentsPerWell_(std::max(componentsPerWell, 0))
{
    const int count = wells.size();
    std::vector<Supply> supplies;
    reserveClaimed(supplies, count);
    for (int i = 0; i < count; ++i)
        supplies.push_back(fetch(wells.get(i)));
    checkNames();
    for (std::size_t i = 0; i < supplies.size(); ++i)
        checkSupply(names_[i], supplies[i]);
}

DumpfluxBlockWells::Supply DumpfluxBlockWells::fetch(const DumpfluxWellData& well)
{
    Supply supply;
    names_.push_back(well.getName());
    if (const DumpfluxFlowData* const flow = well.getFlowData()) {
        supply.hasFlowData = true;
        flowRates_.insert(flowRates_.end(), {flow->getOilFlowRate(), flow->getWaterFlowRate(), flow->getGasFlowRate(),
                                             flow->getReservoirVolmueFlowRate(), flow->getEnergyProductionRate()});
    }
    const IDumpfluxWellComponentsArray* const components = well.getWellComponentArray();
    if (componentsPerWell_ > 0 && components != nullptr) {
        supply.hasComponents = true;
        supply.componentCount = components->size();
        if (supply.componentCount == componentsPerWell_)
            fetchComponents(*components);
    }
    return supply;
}

/// One kind of rate behind the other.
void DumpfluxBlockWells::fetchComponents(const IDumpfluxWellComponentsArray& components)
{
    std::vector<double> liquidRates;
    std::vector<double> vapourRates;
    for (int i = 0; i < componentsPerWell_; ++i) {
        const DumpfluxWellComponentData component = components.get(i);
        componentRates_.push_back(component.getMolarRate());
        liquidRates.push_back(component.getLiquidRate());
        vapourRates.push_back(component.getVapourRate());
    }
    componentRates_.insert(componentRates_.end(), liquidRates.begin(), liquidRates.end());
    componentRates_.insert(componentRates_.end(), vapourRates.begin(), vapourRates.end());
}

void DumpfluxBlockWells::checkNames() const
{
    std::set<std::string> distinct;
    for (const std::string& name : names_)
        if (!distinct.insert(nameAsRead(name)).second)
            fail<std::invalid_argument>("Can not have repeated data for well ", name);
}

void DumpfluxBlockWells::checkSupply(const std::string& name, const Supply& supply) const
{
    if (!supply.hasFlowData)
        fail<std::invalid_argument>("The flow data must be specified for well ", name);
    if (componentsPerWell_ == 0)
        return;
    if (!supply.hasComponents)
        fail<std::invalid_argument>(
            "For a compositional simulation the well component data must be specified for well ", name);
    if (supply.componentCount != componentsPerWell_)
        fail<std::invalid_argument>(
            "For a compositional simulation all the components must have component data specified for well ", name);
}

void DumpfluxBlockWells::write(KeywordWriter& out) const
{
    if (names_.empty())
        return;
    out.write(KeywordCHAR(DumpfluxLayout::WELLNAME, names_));
    out.write(KeywordTmpl<ValueType::DOUB>(DumpfluxLayout::WELLFLOW, flowRates_));
    if (componentsPerWell_ > 0)
        out.write(KeywordTmpl<ValueType::DOUB>(DumpfluxLayout::WELLCOMP, componentRates_));
}

} // namespace Kvt::Mrl::MrlIO
