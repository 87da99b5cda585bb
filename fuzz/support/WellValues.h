#pragma once

#include "support/Answers.h"

#include <mrlio/GRFTReader.h>
#include <mrlio/HMDReader.h>
#include <mrlio/RFTReader.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace MrlIOFuzz {

using Kvt::Mrl::MrlIO::GRFTParameter;
using Kvt::Mrl::MrlIO::GRFTReader;
using Kvt::Mrl::MrlIO::HMDReader;
using Kvt::Mrl::MrlIO::RFTReader;

constexpr std::ptrdiff_t mostNames = 2;
constexpr std::ptrdiff_t mostArrays = 4;
constexpr std::size_t mostReports = 2;

/// Asks for an array as a vector of each type. `where` are the arguments between the array and the values.
template <class... Types, class Reader, class... Where>
void askArray(Answers& answers, const Reader& reader, const std::string& array, const Where&... where)
{
    const auto askAs = [&]<class T>(std::vector<T> values) {
        answers.ask([&] {
            const bool isThere = reader.getArray(array, where..., values);
            require(isThere || values.empty(), "no values without an array");
            answers.add(isThere);
            answers.add(values);
        });
    };
    (askAs(std::vector<Types>()), ...);
}

template <class Reader>
void askReports(Answers& answers, const Reader& reader)
{
    answers.ask([&] {
        require(reader.dates().size() == reader.times().size(), "each report has a date and a time");
        answers.add(reader.dates());
        answers.add(reader.times());
        answers.add(reader.wells());
        for (const auto unit :
             {&Reader::timeUnit, &Reader::depthUnit, &Reader::pressureUnit, &Reader::oilAndWaterFlowRateUnit,
              &Reader::gasFlowRateUnit, &Reader::localVolumetricFlowRateUnit, &Reader::flowVelocityUnit,
              &Reader::viscosityUnit, &Reader::polymerAndBrineConcentrationUnit, &Reader::polymerAndBrineFlowRateUnit,
              &Reader::adsorbedPolymerConcentrationUnit, &Reader::temperatureUnit, &Reader::massDensityUnit,
              &Reader::energyUnit})
            answers.add((reader.*unit)());
    });
}

/// The first names, and one that no file has.
template <class Names>
std::vector<std::string> withUnknown(const Names& names, std::ptrdiff_t most)
{
    std::vector<std::string> some = someOf(names, most);
    some.emplace_back("unknown name");
    return some;
}

/// The first reports, and one behind the last.
inline std::size_t askedReports(std::size_t reports)
{
    return std::min(reports, mostReports) + 1;
}

inline void askEverything(Answers& answers, const RFTReader& reader)
{
    askReports(answers, reader);
    std::vector<std::string> arrays;
    for (const auto list : {&RFTReader::basicArrayNames, &RFTReader::RFTArrayNames, &RFTReader::PLTArrayNames,
                            &RFTReader::segmentArrayNames}) {
        for (const std::string& array : withUnknown((reader.*list)(), mostArrays))
            arrays.push_back(array);
    }
    answers.ask([&] {
        for (const std::string& array : arrays)
            answers.add(static_cast<int>(reader.arrayValueType(array)));
    });
    for (const std::string& well : withUnknown(reader.wells(), mostNames)) {
        answers.ask([&] {
            answers.add(reader.LGR(well));
            answers.add(static_cast<int>(reader.wellType(well)));
            for (const auto list :
                 {&RFTReader::basicArrays, &RFTReader::RFTArrays, &RFTReader::PLTArrays, &RFTReader::segmentArrays})
                answers.add((reader.*list)(well));
        });
        for (std::size_t report = 0; report < askedReports(reader.dates().size()); ++report) {
            for (const std::string& array : arrays)
                askArray<double, std::string>(answers, reader, array, well, report);
            askArray<int, float, bool>(answers, reader, "CONIPOS", well, report);
            answers.ask([&] { answers.add(reader.getNCON(well, report)); });
            answers.ask([&] { answers.add(reader.getNREA(well, report)); });
            answers.ask([&] { answers.add(reader.getNSEG(well, report)); });
        }
        for (const auto& date : someOf(reader.dates(), 2))
            askArray<float>(answers, reader, "DEPTH", well, date);
    }
}

inline void askEverything(Answers& answers, const GRFTReader& reader)
{
    askReports(answers, reader);
    std::vector<GRFTParameter> parameters = someOf(reader.parameters(), mostNames);
    parameters.emplace_back();
    answers.ask([&] { answers.add(reader.parameters()); });
    const auto basic = withUnknown(reader.basicDataNames({}, {}), mostArrays);
    auto arrays = withUnknown(reader.gradientsNames({}, {}), mostArrays);
    arrays.insert(arrays.end(), basic.begin(), basic.end());
    for (const std::string& well : withUnknown(reader.wells(), mostNames)) {
        answers.ask([&] { answers.add(reader.getLGR(well)); });
        answers.ask([&] { answers.add(static_cast<int>(reader.wellType(well))); });
        for (const GRFTParameter& parameter : parameters)
            answers.ask([&] {
                answers.add(reader.basicData(parameter, well));
                answers.add(reader.gradients(parameter, well));
            });
        for (std::size_t report = 0; report < askedReports(reader.dates().size()); ++report) {
            answers.ask([&] { answers.add(reader.getNCON(well, report)); });
            for (const GRFTParameter& parameter : parameters) {
                for (const std::string& array : arrays)
                    askArray<double, std::string>(answers, reader, array, parameter, well, report);
                askArray<int, float, bool>(answers, reader, "CONIPOS", parameter, well, report);
            }
        }
        for (const auto& date : someOf(reader.dates(), 2))
            askArray<float>(answers, reader, "PRESSURE", parameters.front(), well, date);
    }
}

inline void askEverything(Answers& answers, const HMDReader& reader)
{
    answers.ask([&] {
        require(reader.times().size() == reader.timeSteps().size(), "each report has a time and a step");
        answers.add(reader.isFileEncoded());
        answers.add(reader.isSinglePrecision());
        answers.add(reader.isWithoutValues());
        answers.add(reader.times());
        answers.add(reader.timeSteps());
        answers.add(reader.parameters());
        for (const auto list :
             {&HMDReader::wellNames, &HMDReader::groupNames, &HMDReader::wellQuantities, &HMDReader::groupQuantities})
            answers.add((reader.*list)());
    });
    std::vector<std::string> arrays;
    for (const auto list :
         {&HMDReader::preambleArrayNames, &HMDReader::variableArrayNames, &HMDReader::gradientArrayNames}) {
        for (const std::string& array : withUnknown((reader.*list)(), mostArrays))
            arrays.push_back(array);
    }
    for (const std::string& array : arrays) {
        answers.ask([&] { answers.add(static_cast<int>(reader.arrayValueType(array))); });
        askArray<int, std::string>(answers, reader, array);
    }
    std::vector<std::string> owners = withUnknown(reader.wellNames(), mostNames);
    const auto groups = someOf(reader.groupNames(), mostNames);
    owners.insert(owners.end(), groups.begin(), groups.end());
    std::vector<GRFTParameter> parameters = someOf(reader.parameters(), mostNames);
    parameters.emplace_back();
    std::vector<std::size_t> reports{std::numeric_limits<std::size_t>::max()};
    for (std::size_t report = 0; report < askedReports(reader.times().size()); ++report)
        reports.push_back(report);
    for (const std::size_t report : reports) {
        for (const std::string& owner : owners) {
            for (const GRFTParameter& parameter : parameters) {
                for (const std::string& array : arrays)
                    askArray<double>(answers, reader, array, parameter, owner, report);
                askArray<int, float, std::string>(answers, reader, "HMHEADI", parameter, owner, report);
            }
        }
    }
}

/// Reads a file and asks about it. `reader` is left with the file, or with none if that failed.
template <class Reader>
Answers answersOf(Reader& reader, const std::string& file)
{
    Answers answers;
    answers.ask([&] { reader.read(file); });
    if (!answers.hasFailed())
        askEverything(answers, reader);
    return answers;
}

} // namespace MrlIOFuzz
