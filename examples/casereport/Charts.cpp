#include "Charts.h"

#include "Vectors.h"

#include <algorithm>
#include <cmath>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// What goes into one picture: some field vectors together, or all vectors of a keyword.
struct ChartPlan
{
    const char* title;
    std::vector<const char*> keywords;
};

const std::vector<ChartPlan>& plans()
{
    static const std::vector<ChartPlan> table{
        {"Field rates", {"FOPR", "FWPR", "FLPR", "FWIR"}},
        {"Field totals", {"FOPT", "FWPT", "FWIT"}},
        {"Field pressure", {"FPR"}},
        {"Oil recovery and water cut", {"FOE", "FWCT"}},
        {"Oil production by well", {"WOPR"}},
        {"Water cut by well", {"WWCT"}},
        {"Bottom hole pressure by well", {"WBHP"}},
        {"Oil production by group", {"GOPR"}},
        {"Oil in place by region", {"ROIP"}},
        {"Water flow between regions", {"RWFR"}},
        {"Water saturation of blocks", {"BWSAT"}},
        {"Pressure of local blocks", {"LBPR"}},
    };
    return table;
}

std::string periodText(const ISimpleSummaryReader& reader, const CaseCalendar& calendar)
{
    const std::vector<float>& times = reader.timeStepDays();
    return times.empty() ? "no steps yet" : calendar.textAt(0) + " to " + calendar.textAt(calendar.days(times.back()));
}

/// Wells without any value but zero say nothing in a picture of rates.
bool isAllZero(const std::vector<float>& values)
{
    return std::all_of(values.begin(), values.end(), [](float value) { return value == 0.0F; });
}

void addVector(Chart& chart, const ISimpleSummaryReader& reader, const SummaryVectorIDParams& vector, bool alone)
{
    const auto values = reader.getValues(vector);
    if (!values || isAllZero(*values))
        return;
    const CaseCalendar calendar(reader);
    const std::vector<float>& times = reader.timeStepDays();
    Curve curve;
    curve.label = alone && !placeOf(vector).empty() ? placeOf(vector) : labelOf(vector);
    for (std::size_t n = 0; n < std::min(values->size(), times.size()); ++n)
        if (std::isfinite(times[n]))
            curve.points.emplace_back(calendar.days(times[n]), (*values)[n]);
    chart.units = reader.unit(vector);
    addCurve(chart, std::move(curve));
}

} // namespace

std::vector<Chart> makeCharts(const ISimpleSummaryReader& reader, const std::string& caseName)
{
    const CaseCalendar calendar(reader);
    std::vector<Chart> charts;
    for (const ChartPlan& plan : plans()) {
        Chart chart;
        chart.title = plan.title;
        chart.subtitle = "Case " + caseName + ", " + periodText(reader, calendar);
        for (const char* keyword : plan.keywords)
            for (const SummaryVectorIDParams& vector : vectorsOf(reader, keyword))
                addVector(chart, reader, vector, plan.keywords.size() == 1);
        if (!chart.curves.empty())
            charts.push_back(std::move(chart));
    }
    return charts;
}

void writeCharts(const ISimpleSummaryReader& reader, const std::string& caseName, PictureFolder& folder)
{
    const CaseCalendar calendar(reader);
    for (const Chart& chart : makeCharts(reader, caseName))
        folder.add(chart.title, drawChart(chart, calendar));
}

} // namespace casereport
