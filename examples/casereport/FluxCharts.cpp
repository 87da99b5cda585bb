#include "FluxCharts.h"

#include "NetFlow.h"
#include "SvgChart.h"

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// Rates hold for a whole time range each: the curve goes in steps.
Curve curveOf(const NetFlow& flow, const DumpfluxReader& reader)
{
    Curve curve;
    curve.label = flow.array;
    for (std::size_t n = 0; n < flow.rates.size(); ++n) {
        curve.points.emplace_back(reader.startTimes()[n], flow.rates[n]);
        curve.points.emplace_back(reader.endTimes()[n], flow.rates[n]);
    }
    return curve;
}

} // namespace

void writeFluxCharts(const DumpfluxReader& reader, const CaseCalendar& calendar, const std::string& caseName,
                     PictureFolder& folder)
{
    for (const int region : regionsToShow(reader)) {
        const std::vector<NetFlow> flows = netFlowsOut(reader, region);
        if (flows.empty() || flows.front().rates.empty())
            continue;
        Chart chart;
        chart.title = "Net flow out of region " + std::to_string(region);
        chart.subtitle = "Case " + caseName + ", " + std::to_string(flows.front().connections) + " connections";
        chart.units = rateUnits(reader);
        for (const NetFlow& flow : flows)
            chart.curves.push_back(curveOf(flow, reader));
        folder.add(chart.title, drawChart(chart, calendar));
    }
}

} // namespace casereport
