#include "GradientChecks.h"

#include "WellVector.h"

#include <algorithm>

namespace checkcase {

namespace {

using namespace Kvt::Mrl::MrlIO;

using Names = std::vector<std::string>;

constexpr double floatTolerance = 2e-6;
constexpr double doubleTolerance = 1e-10;
constexpr double derivativeRounding = 1e-6; ///< of differences between rates, over a small change

std::string placeText(const std::string& well, const GRFTParameter& parameter, std::size_t report)
{
    return " of " + well + " by " + parameter.name + " at report " + std::to_string(report);
}

bool hasSameCells(const GRFTReader& gradients, const RFTReader& wells, const std::string& well, std::size_t date)
{
    for (const char* array : {"CONIPOS", "CONJPOS", "CONKPOS"}) {
        std::vector<int> ours, theirs;
        gradients.getArray(array, GRFTParameter(), well, date, ours);
        wells.getArray(array, well, date, theirs);
        if (ours.empty() || ours != theirs)
            return false;
    }
    return true;
}

void compareLengths(const GRFTReader& gradients, const std::string& well, std::size_t date, int connections,
                    Comparison& comparison)
{
    for (const GRFTParameter& parameter : gradients.parameters()) {
        const std::set<std::string> arrays = gradients.gradients(parameter, well);
        comparison.expect("no gradients" + placeText(well, parameter, date), !arrays.empty());
        for (const std::string& array : arrays) {
            std::vector<double> values;
            gradients.getArray(array, parameter, well, date, values);
            comparison.expectSame("length of " + array + placeText(well, parameter, date),
                                  static_cast<double>(values.size()), connections, 0.0);
        }
    }
}

std::size_t stepAt(const ISimpleSummaryReader& summary, double time)
{
    const std::vector<float>& days = summary.timeStepDays();
    return static_cast<std::size_t>(std::find(days.begin(), days.end(), static_cast<float>(time)) - days.begin());
}

/// The values of a well or group against those vectors at all times.
void compareValues(const HMDReader& matchData, const std::string& owner, const Names& quantities,
                   const std::vector<std::vector<float>>& vectors, const ISimpleSummaryReader& summary,
                   Comparison& comparison)
{
    for (std::size_t n = 0; n < matchData.times().size(); ++n) {
        const std::size_t step = stepAt(summary, matchData.times()[n]);
        std::vector<double> values;
        matchData.getArray("VALUES", HMDParameter(), owner, n, values);
        const std::string what = owner + " at report " + std::to_string(n);
        comparison.expect("not a value for each quantity of " + what, values.size() == quantities.size());
        for (std::size_t q = 0; q < std::min(values.size(), quantities.size()); ++q)
            if (step < vectors[q].size())
                comparison.expectSame(quantities[q] + " of " + what, values[q], double{vectors[q][step]},
                                      floatTolerance);
            else
                comparison.expect("the summary has no " + quantities[q] + " for " + what, false);
    }
}

std::vector<double> fieldRates(const HMDReader& matchData, const char* array, const HMDParameter& parameter,
                               std::size_t report)
{
    std::vector<double> rates;
    for (const std::string& group : matchData.groupNames())
        matchData.getArray(array, parameter, group, report, rates);
    return rates;
}

void compareSums(const HMDReader& matchData, const char* array, const HMDParameter& parameter, std::size_t report,
                 double rounding, Comparison& comparison)
{
    const std::vector<double> field = fieldRates(matchData, array, parameter, report);
    const Names &ofWells = matchData.wellQuantities(), &ofField = matchData.groupQuantities();
    for (std::size_t q = 0; q < std::min({ofWells.size(), ofField.size(), field.size()}); ++q) {
        if (!ofWells[q].ends_with('R') || ofWells[q].substr(1) != ofField[q].substr(1)) // no rates, or other ones
            continue;
        double sum = 0.0;
        for (const std::string& well : matchData.wellNames()) {
            std::vector<double> rates;
            matchData.getArray(array, parameter, well, report, rates);
            sum += q < rates.size() ? rates[q] : 0.0;
        }
        comparison.expectSame(array + (" " + ofField[q]) + placeText("the field", parameter, report), sum, field[q],
                              doubleTolerance, rounding);
    }
}

} // namespace

void compareWithWells(const GRFTReader& gradients, const RFTReader& wells, Comparison& comparison)
{
    comparison.expect("gradients and well results differ in dates", gradients.dates() == wells.dates());
    comparison.expect("gradients and well results differ in wells", gradients.wells() == wells.wells());
    comparison.expect("no gradients by any parameter", !gradients.parameters().empty());
    for (std::size_t date = 0; date < gradients.dates().size(); ++date)
        for (const std::string& well : gradients.wells()) {
            comparison.expect("gradients and well results differ in the cells of " + well,
                              hasSameCells(gradients, wells, well, date));
            compareLengths(gradients, well, date, wells.getNCON(well, date), comparison);
        }
}

void compareWithGradients(const HMDReader& matchData, const GRFTReader& gradients, Comparison& comparison)
{
    std::vector<GRFTParameter> parameters = gradients.parameters();
    std::sort(parameters.begin(), parameters.end());
    comparison.expect("match data and gradients differ in parameters", matchData.parameters() == parameters);
    comparison.expect("match data and gradients differ in wells", matchData.wellNames() == gradients.wells());
    const std::vector<double>& times = matchData.times();
    comparison.expect("match data and gradients differ in times",
                      std::vector<float>(times.begin(), times.end()) == gradients.times());
}

void compareWithSummary(const HMDReader& matchData, const ISimpleSummaryReader& summary, Comparison& comparison)
{
    const auto compare = [&](const std::string& owner, const Names& quantities, const std::string& name) {
        std::vector<std::vector<float>> vectors;
        for (const std::string& quantity : quantities)
            vectors.push_back(wellVector(summary, quantity, name));
        compareValues(matchData, owner, quantities, vectors, summary, comparison);
    };
    for (const std::string& well : matchData.wellNames())
        compare(well, matchData.wellQuantities(), well);
    for (const std::string& group : matchData.groupNames())
        compare(group, matchData.groupQuantities(), group == "FIELD" ? "" : group);
}

void compareWithField(const HMDReader& matchData, Comparison& comparison)
{
    comparison.expect("there is no field in the match data", matchData.groupNames() == Names{"FIELD"});
    for (std::size_t report = 0; report < matchData.times().size(); ++report) {
        compareSums(matchData, "VALUES", HMDParameter(), report, 0.0, comparison);
        for (const HMDParameter& parameter : matchData.parameters())
            compareSums(matchData, "DERIVS", parameter, report, derivativeRounding, comparison);
    }
    for (const HMDParameter& parameter : matchData.parameters()) {
        const std::vector<double> rates = fieldRates(matchData, "DERIVS", parameter, matchData.times().size() - 1);
        comparison.expect("nothing depends on " + parameter.name,
                          std::any_of(rates.begin(), rates.end(), [](double rate) { return rate != 0.0; }));
    }
}

} // namespace checkcase
