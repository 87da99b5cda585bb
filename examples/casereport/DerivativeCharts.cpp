#include "DerivativeCharts.h"

#include "Labels.h"
#include "SvgChart.h"
#include "Vectors.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr std::size_t mostParameters = 4; ///< with a picture of their own

/// Of a well at the report of an index.
using DerivativeAt = std::function<std::optional<double>(const GRFTParameter&, const std::string&, std::size_t)>;

/// What is drawn of a file: all of its derivatives of one thing.
struct DerivativePlan
{
    std::string thing, units, subtitle;
    const std::vector<GRFTParameter>& parameters;
    const std::vector<std::string>& wells;
    std::vector<double> days; ///< of the reports
    DerivativeAt valueAt;
};

Curve curveOf(const DerivativePlan& plan, const GRFTParameter& parameter, const std::string& well)
{
    Curve curve;
    curve.label = well;
    for (std::size_t n = 0; n < plan.days.size(); ++n)
        if (const std::optional<double> value = plan.valueAt(parameter, well, n))
            curve.points.emplace_back(plan.days[n], *value);
    return curve;
}

void draw(const DerivativePlan& plan, const CaseCalendar& calendar, PictureFolder& folder)
{
    for (std::size_t n = 0; n < std::min(mostParameters, plan.parameters.size()); ++n) {
        Chart chart;
        chart.title = "Derivative of " + plan.thing + " by " + labelOf(plan.parameters[n]);
        chart.subtitle = plan.subtitle;
        chart.units = plan.units;
        for (const std::string& well : plan.wells) {
            Curve curve = curveOf(plan, plan.parameters[n], well);
            const auto isZero = [](const auto& point) { return point.second == 0.0; };
            if (!std::all_of(curve.points.begin(), curve.points.end(), isZero))
                addCurve(chart, std::move(curve));
        }
        if (!chart.curves.empty())
            folder.add(chart.title, drawChart(chart, calendar));
    }
}

/// Times of a case, which are hours in laboratory units.
template <class Time>
std::vector<double> daysOf(const std::vector<Time>& times, const CaseCalendar& calendar)
{
    std::vector<double> days;
    for (const Time time : times)
        days.push_back(calendar.days(static_cast<float>(time)));
    return days;
}

} // namespace

std::optional<double> meanGradient(const GRFTReader& reader, const std::string& gradient,
                                   const GRFTParameter& parameter, const std::string& well, std::size_t date)
{
    std::vector<double> values;
    if (!reader.getArray(gradient, parameter, well, date, values) || values.empty())
        return {};
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

std::optional<double> derivative(const HMDReader& reader, std::size_t quantity, const HMDParameter& parameter,
                                 const std::string& owner, std::size_t time)
{
    std::vector<double> values;
    reader.getArray("DERIVS", parameter, owner, time, values);
    return quantity < values.size() ? std::optional(values[quantity]) : std::nullopt;
}

void drawGradients(const GRFTReader& reader, const ISimpleSummaryReader& summary, const std::string& caseName,
                   PictureFolder& folder)
{
    const CaseCalendar calendar(summary);
    const auto valueAt = [&](const GRFTParameter& parameter, const std::string& well, std::size_t date) {
        return meanGradient(reader, "PRESSURE", parameter, well, date);
    };
    draw({"PRESSURE", reader.pressureUnit(), "Case " + caseName + ", means over the cells of the wells",
          reader.parameters(), reader.wells(), daysOf(reader.times(), calendar), valueAt},
         calendar, folder);
}

void drawMatchData(const HMDReader& reader, const ISimpleSummaryReader& summary, const std::string& caseName,
                   PictureFolder& folder)
{
    if (reader.wellQuantities().empty())
        return;
    const CaseCalendar calendar(summary);
    const std::string& quantity = reader.wellQuantities().front();
    const std::vector<SummaryVectorIDParams> vectors = vectorsOf(summary, quantity); // the file itself knows no units
    const auto valueAt = [&](const HMDParameter& parameter, const std::string& well, std::size_t time) {
        return derivative(reader, 0, parameter, well, time);
    };
    draw({quantity, vectors.empty() ? "derivative" : summary.unit(vectors.front()), "Case " + caseName,
          reader.parameters(), reader.wellNames(), daysOf(reader.times(), calendar), valueAt},
         calendar, folder);
}

} // namespace casereport
