#include "CellOutput.h"
#include "WellTables.h"
#include "WriterSettings.h"

#include <filesystem>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr int usualBuffer = 0;
constexpr int countActiveCells = -1;

/// A property in pieces of a layer, as a simulator does it that never has a whole array in one place.
template <class Writer>
void writeByLayers(Writer& writer, const FileGrid& grid, const CellProperty& property, const Simulator& simulator)
{
    const std::size_t count = grid.cells->cellCount();
    const std::size_t layer = count / static_cast<std::size_t>(grid.cells->nz);
    const CellValues<float> whole = valuesOf<float>(grid, property, simulator);
    writer.sequenceStartSolutionArray(property.name, static_cast<int>(count), whole, false);
    for (std::size_t first = 0; first < count; first += layer)
        writer.sequenceWriteSolutionValues(
            CellValues<float>(layer, [&](std::size_t cell) { return whole.getValue(static_cast<int>(first + cell)); }));
    writer.sequenceEndSolutionArray();
}

/// The second pass: transmissibilities between the local grid and the cells around it.
void writeLocalFaces(SequentialInitWriter& writer, const Simulator& simulator)
{
    const Reservoir& reservoir = simulator.reservoir();
    const std::vector<LocalFace> faces = outerFaces(reservoir.grid, *reservoir.localGrid);
    writer.sequenceNNCStart();
    writer.sequenceNNCStartGrid(reservoir.localGrid->name);
    writer.sequenceWriteSolutionArray(
        "TRANGL", CellValues<float>(faces.size(), [&](std::size_t n) { return transmissibility(faces[n], simulator); }),
        false);
    writer.sequenceNNCEndGrid();
    writer.sequenceNNCEnd();
}

/// The files of single steps that an earlier run left: the sequential writer would go on behind what they hold.
void removeEarlierSteps(const Options& options)
{
    const CaseFileFinder finder(options.caseName, options.directory);
    const auto format = FileIdentifiers::DataFormat::get(options.formatted, options.unified);
    for (const std::string& file : FileFinders::Restart::findRestartFiles(finder, format))
        std::filesystem::remove(file);
}

class SequentialOutput : public CellOutput
{
public:
    explicit SequentialOutput(const Options& options)
        : options_(options),
          restart_(options.directory, options.caseName, startDate(), {}, options.formatted, writerParams(options),
                   false, false)
    {
        restart_.setRestartHeaderInfoCallback(&headerValues_);
        if (options.overwrite)
            removeEarlierSteps(options);
    }

    void writeInitial(const Simulator& simulator) override
    {
        const std::vector<FileGrid> grids = fileGrids(simulator.reservoir());
        const std::list<CellValues<float>> porv = poreVolumesOf(grids, simulator);
        auto volumes = porv.begin();
        SequentialInitWriter writer(options_.directory, options_.caseName, startDate(), {}, options_.formatted,
                                    writerParams(options_), false);
        writer.setRestartHeaderInfoCallback(&headerValues_);
        for (const FileGrid& grid : grids)
            writer.addGridSpec(gridSpec(grid));
        writer.open(usualBuffer);
        writer.sequenceStart();
        for (const FileGrid& grid : grids) {
            writer.sequenceStartGrid(grid.name, *volumes++, countActiveCells);
            writeByLayers(writer, grid, poreVolumes, simulator);
            writeProperties(*writer.sequenceGetCurrentGridWriter(), grid, initialProperties(), simulator);
            writer.sequenceEndGrid();
        }
        writer.sequenceEnd();
        if (simulator.reservoir().localGrid)
            writeLocalFaces(writer, simulator);
        writer.close();
    }

    void writeStep(const Simulator& simulator, int reportStep) override
    {
        const std::vector<FileGrid> grids = fileGrids(simulator.reservoir());
        const std::list<CellValues<float>> porv = poreVolumesOf(grids, simulator);
        auto volumes = porv.begin();
        for (const FileGrid& grid : grids)
            restart_.addGridSpec(gridSpec(grid));
        restart_.open(reportStep, simulator.days(), usualBuffer);
        writeWells(restart_, simulator);
        restart_.sequenceStart();
        for (const FileGrid& grid : grids) {
            restart_.sequenceStartGrid(grid.name, *volumes++, countActiveCells);
            writeProperties(*restart_.sequenceGetCurrentGridWriter(), grid, stepProperties(), simulator);
            restart_.sequenceEndGrid();
        }
        restart_.sequenceEnd();
        restart_.close();
    }

private:
    Options options_;
    HeaderValues headerValues_;
    SequentialRestartWriter restart_;
};

} // namespace

std::unique_ptr<CellOutput> makeSequentialOutput(const Options& options)
{
    return std::make_unique<SequentialOutput>(options);
}

} // namespace waterflood
