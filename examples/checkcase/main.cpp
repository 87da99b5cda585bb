/// Says whether the files of a case agree where more than one of them tells the same: a check of what wrote them, and of
/// what read them.

#include "FluxChecks.h"
#include "GradientChecks.h"
#include "WellChecks.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace {

using namespace checkcase;
using namespace Kvt::Mrl::MrlIO;

std::string found(const std::string& file, const char* kind)
{
    if (file.empty())
        throw std::runtime_error(std::string("the case has no ") + kind);
    return file;
}

/// What a case need not have: derivatives. Their two files come together.
void checkGradients(const CaseFileFinder& finder, const RFTReader& wells, const ISimpleSummaryReader& summary,
                    Comparison& comparison)
{
    const auto any = FileIdentifiers::DataFormat::DefaultAll();
    const std::string gradientFile = FileFinders::GRFT::findFile(finder, any);
    const std::string matchFile = FileFinders::HMD::findFile(finder, any);
    if (gradientFile.empty() && matchFile.empty())
        return;
    GRFTReader gradients;
    gradients.read(found(gradientFile, "gradients"));
    HMDReader matchData;
    matchData.read(found(matchFile, "history match data"));

    compareWithWells(gradients, wells, comparison);
    compareWithGradients(matchData, gradients, comparison);
    compareWithSummary(matchData, summary, comparison);
    compareWithField(matchData, comparison);
}

void checkCase(const std::string& directory, const std::string& caseName, Comparison& comparison)
{
    const CaseFileFinder finder(caseName, directory);
    const auto any = FileIdentifiers::DataFormat::DefaultAll();
    const auto spec =
        std::make_shared<SummarySpecData>(found(FileFinders::Summary::findSpecFile(finder, any), "summary"));
    const auto summary = SimpleSummaryReader::create(spec, FileFinders::Summary::findSummaryFiles(finder, any),
                                                     directory, caseName, ISummaryReader::NoCache);
    InitRestartReaderBuilders builders;
    const auto steps = builders.RestartReaderBuilder().build(finder, builders.InitReaderBuilder().build(finder));
    if (!steps)
        throw std::runtime_error("the case has no restart steps");
    RFTReader wells;
    wells.read(found(FileFinders::RFT::findFile(finder, any), "well results"));
    DumpfluxReader fluxes;
    fluxes.read(found(FileFinders::Dumpflux::findFile(finder, any), "boundary fluxes"));

    compareWithCells(wells, *steps, comparison);
    compareWithSummary(wells, *summary, comparison);
    compareRegions(fluxes, comparison);
    compareWithSummary(fluxes, *summary, comparison);
    checkGradients(finder, wells, *summary, comparison);
    compareWithMessages(fluxes, (std::filesystem::path(directory) / (caseName + ".MSG")).string(), comparison);
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 3) {
        std::cerr << "Usage: checkcase DIRECTORY CASE\n"
                     "Compares what the files of a case tell of the same things; gives 1 if they don't agree.\n";
        return 2;
    }
    try {
        Comparison comparison;
        checkCase(arguments[1], arguments[2], comparison);
        std::cout << comparison.compared() << " comparisons, " << comparison.different() << " differences\n";
        return comparison.different() == 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "checkcase: " << error.what() << "\n";
        return 1;
    }
}
