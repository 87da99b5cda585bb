#include "GradientOutput.h"

#include "WellBlock.h"

#include <algorithm>
#include <filesystem>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

using Doubles = KeywordTmpl<ValueType::DOUB>;
using Names = std::vector<std::string>;

constexpr const char* gradientExtensions[] = {".GRFT", ".FGRFT"};
constexpr const char* matchExtensions[] = {".HMD", ".FHMD"};

const Names wellQuantities{"WOPR", "WWPR", "WWIR", "WBHP"};
const Names fieldQuantities{"FOPR", "FWPR", "FWIR", "FPR"};

/// The vectors that the summary has for these quantities.
std::vector<SummaryVector> vectorsFor(const Names& quantities, const std::vector<SummaryVector>& all,
                                      const auto& isMeant)
{
    std::vector<SummaryVector> vectors;
    for (const std::string& quantity : quantities)
        vectors.push_back(*std::find_if(all.begin(), all.end(), [&](const SummaryVector& vector) {
            return vector.keyword == quantity && isMeant(vector);
        }));
    return vectors;
}

/// Opens what belongs to a parameter: whose derivatives by which one follow.
void beginParameter(KeywordWriter& writer, const char* names, const std::string& owner, const Parameter& parameter)
{
    constexpr int noSecondDomain = 0;
    writer.write(Words(names, {owner, parameter.name}));
    writer.write(Integers("HMHEADI", {parameter.domain, parameter.type, noSecondDomain}));
}

} // namespace

GradientOutput::GradientOutput(const Options& options, const Reservoir& reservoir)
    : runs_(reservoir),
      gradientFile_(options, gradientExtensions[0], gradientExtensions[1]),
      matchFile_(options, matchExtensions[0], matchExtensions[1])
{
    const std::vector<SummaryVector> all = globalVectors(reservoir);
    field_ = {"FIELD", vectorsFor(fieldQuantities, all, [](const SummaryVector&) { return true; })};
    for (const Well& well : reservoir.wells)
        wells_.push_back({well.name, vectorsFor(wellQuantities, all, [&](const SummaryVector& vector) {
                              return vector.name == well.name;
                          })});
    matchFile_.append([this](KeywordWriter& writer) { writePreamble(writer); });
}

void GradientOutput::record(const Simulator& simulator)
{
    days_.push_back(simulator.days());
}

void GradientOutput::endReportStep(const Simulator& simulator)
{
    runs_.follow(days_);
    days_.clear();
    writeReport(simulator);
}

void GradientOutput::writeReport(const Simulator& simulator)
{
    gradientFile_.append([&](KeywordWriter& writer) {
        for (std::size_t well = 0; well < wells_.size(); ++well)
            writeWell(writer, simulator, well);
    });
    matchFile_.append([&](KeywordWriter& writer) {
        writer.write(Doubles("TIMESTEP", {simulator.days(), simulator.lastStep()}));
        for (const Quantities& well : wells_)
            writeQuantities(writer, simulator, "NAMES", well);
        writeQuantities(writer, simulator, "GNAMES", field_);
    });
}

void GradientOutput::writePreamble(KeywordWriter& writer) const
{
    writer.write(Words("CODESTAT", {"PLAIN"}));
    writer.write(Words("GRADWELL", wellQuantities));
    writer.write(Words("GRADGRUP", fieldQuantities));
}

void GradientOutput::writeWell(KeywordWriter& writer, const Simulator& simulator, std::size_t well) const
{
    const WellState& state = simulator.wells()[well];
    beginWellBlock(writer, simulator, well);
    for (std::size_t n = 0; n < runs_.size(); ++n) {
        const auto gradient = [&](const char* name, const std::vector<double>& (Simulator::*field)() const) {
            return perConnection(name, state, [&](const ConnectionFlow& c) {
                return runs_.derivative(n, simulator, [&](const Simulator& run) { return (run.*field)()[c.cell]; });
            });
        };
        beginParameter(writer, "NAMES", wells_[well].owner, runs_.parameter(n));
        writer.write(gradient("PRESSURE", &Simulator::pressures));
        writer.write(gradient("SWAT", &Simulator::waterSaturations));
    }
}

/// The values, which are the same for all parameters, stand with the first.
void GradientOutput::writeQuantities(KeywordWriter& writer, const Simulator& simulator, const char* names,
                                     const Quantities& quantities) const
{
    for (std::size_t n = 0; n < runs_.size(); ++n) {
        std::vector<double> derivatives, values;
        for (const SummaryVector& vector : quantities.vectors) {
            derivatives.push_back(runs_.derivative(n, simulator, vector.value));
            values.push_back(vector.value(simulator));
        }
        beginParameter(writer, names, quantities.owner, runs_.parameter(n));
        writer.write(Doubles("DERIVS", derivatives));
        if (n == 0)
            writer.write(Doubles("VALUES", values));
    }
}

std::unique_ptr<GradientOutput> makeGradientOutput(const Options& options, const Reservoir& reservoir)
{
    if (options.gradients)
        return std::make_unique<GradientOutput>(options, reservoir);
    if (options.overwrite)
        for (const auto& extensions : {gradientExtensions, matchExtensions})
            std::filesystem::remove(pathOf(options, extensions[options.formatted ? 1 : 0]));
    return nullptr;
}

} // namespace waterflood
