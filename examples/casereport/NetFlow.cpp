#include "NetFlow.h"

#include <numeric>

namespace casereport {

using namespace Kvt::Mrl::MrlIO;

std::vector<int> regionsToShow(const DumpfluxReader& reader)
{
    std::vector<int> regions(reader.regions().begin(), reader.regions().end());
    if (regions.size() > 1)
        std::erase(regions, 0);
    return regions;
}

std::vector<NetFlow> netFlowsOut(const DumpfluxReader& reader, int region)
{
    std::vector<NetFlow> flows;
    if (reader.boundaryType() != DumpfluxBoundaryType::FLUX)
        return flows;
    const std::vector<double>&starts = reader.startTimes(), &ends = reader.endTimes();
    for (const std::string& array : reader.dataArrayNames()) {
        NetFlow flow;
        flow.array = array;
        for (std::size_t n = 0; n < starts.size(); ++n) {
            std::vector<double> values;
            std::vector<int> outer, inner;
            reader.getArray(array, starts[n], values, outer, inner, region);
            flow.connections = inner.size();
            flow.rates.push_back(std::accumulate(values.begin(), values.end(), 0.0));
            flow.total += flow.rates.back() * (ends[n] - starts[n]);
        }
        flows.push_back(std::move(flow));
    }
    return flows;
}

std::string volumeUnits(const DumpfluxReader& reader)
{
    switch (reader.unitSystem()) {
    case UnitSystemType::METRIC:
    case UnitSystemType::PVT_M:
        return "SM3";
    case UnitSystemType::FIELD:
        return "STB";
    case UnitSystemType::LAB:
        return "SCC";
    }
    return "volume";
}

std::string rateUnits(const DumpfluxReader& reader)
{
    return volumeUnits(reader) + "/DAY";
}

} // namespace casereport
