#include "WellProfiles.h"

#include "Dates.h"
#include "ProfileChart.h"

#include <algorithm>
#include <cmath>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;
using Service::YearMonthDay;

constexpr std::size_t usualDates = 4;

/// An array along a well, and the one that tells the depths of its values.
struct ArrayPlan
{
    const char* array;
    const char* depths;
    const char* title;
    const std::string& (RFTReader::*units)() const; ///< null for fractions
};

constexpr ArrayPlan plans[] = {
    {"PRESSURE", "DEPTH", "Pressure", &RFTReader::pressureUnit},
    {"SWAT", "DEPTH", "Water saturation", nullptr},
    {"SGAS", "DEPTH", "Gas saturation", nullptr},
    {"CONORAT", "CONDEPTH", "Oil from the rock", &RFTReader::oilAndWaterFlowRateUnit},
    {"CONWRAT", "CONDEPTH", "Water from the rock", &RFTReader::oilAndWaterFlowRateUnit},
    {"CONGRAT", "CONDEPTH", "Gas from the rock", &RFTReader::gasFlowRateUnit},
};

std::vector<YearMonthDay> spreadEvenly(const std::vector<YearMonthDay>& dates)
{
    const std::size_t count = std::min(usualDates, dates.size());
    std::vector<YearMonthDay> chosen;
    for (std::size_t n = 0; n < count; ++n)
        chosen.push_back(dates[count == 1 ? 0 : n * (dates.size() - 1) / (count - 1)]);
    return chosen;
}

/// The points in which both numbers can be drawn.
Profile profileOf(const std::vector<double>& values, const std::vector<double>& depths, std::size_t number)
{
    Profile profile;
    profile.number = number;
    for (std::size_t n = 0; n < std::min(values.size(), depths.size()); ++n)
        if (std::isfinite(values[n]) && std::isfinite(depths[n]))
            profile.points.emplace_back(values[n], depths[n]);
    return profile;
}

bool isAllZero(const ProfilePanel& panel)
{
    return std::all_of(panel.profiles.begin(), panel.profiles.end(), [](const Profile& profile) {
        return std::all_of(profile.points.begin(), profile.points.end(),
                           [](const auto& point) { return point.first == 0.0; });
    });
}

ProfilePanel panelOf(const RFTReader& reader, const ArrayPlan& plan, const std::string& well,
                     const std::vector<YearMonthDay>& dates)
{
    ProfilePanel panel{plan.title, plan.units != nullptr ? (reader.*plan.units)() : std::string(), {}};
    for (std::size_t n = 0; n < dates.size(); ++n) {
        std::vector<double> values, depths;
        if (reader.getArray(plan.array, well, dates[n], values) && reader.getArray(plan.depths, well, dates[n], depths))
            panel.profiles.push_back(profileOf(values, depths, n));
    }
    return panel;
}

ProfileChart chartOf(const RFTReader& reader, const std::string& well, const std::vector<YearMonthDay>& dates,
                     const std::string& caseName)
{
    ProfileChart chart;
    chart.title = "Well " + well + " by depth";
    chart.subtitle = "Case " + caseName + (reader.LGR(well).empty() ? "" : ", in the local grid " + reader.LGR(well));
    chart.depthUnits = reader.depthUnit();
    for (const YearMonthDay& date : dates)
        chart.names.push_back(textOf(date));
    for (const ArrayPlan& plan : plans)
        if (ProfilePanel panel = panelOf(reader, plan, well, dates); !isAllZero(panel))
            chart.panels.push_back(std::move(panel));
    return chart;
}

/// Moves what isn't there from the wanted things to the texts.
template <class Thing, class Text>
void takeOutMissing(std::vector<Thing>& wanted, const std::vector<Thing>& there, const Text& text,
                    std::vector<std::string>& missing)
{
    std::erase_if(wanted, [&](const Thing& thing) {
        const bool isMissing = std::find(there.begin(), there.end(), thing) == there.end();
        if (isMissing)
            missing.push_back(text(thing));
        return isMissing;
    });
}

} // namespace

std::vector<std::string> writeProfiles(const RFTReader& reader, const ProfileChoice& choice,
                                       const std::string& caseName, PictureFolder& folder)
{
    std::vector<std::string> wells = choice.wells.empty() ? reader.wells() : choice.wells;
    std::vector<YearMonthDay> dates = choice.dates.empty() ? spreadEvenly(reader.dates()) : choice.dates;
    std::vector<std::string> missing;
    takeOutMissing(
        wells, reader.wells(), [](const std::string& well) { return "well " + well; }, missing);
    takeOutMissing(
        dates, reader.dates(), [](const YearMonthDay& date) { return "date " + textOf(date); }, missing);
    for (const std::string& well : wells) {
        const ProfileChart chart = chartOf(reader, well, dates, caseName);
        if (!chart.panels.empty())
            folder.add(chart.title, drawProfiles(chart));
    }
    return missing;
}

} // namespace casereport
