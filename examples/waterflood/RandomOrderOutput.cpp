#include "CellOutput.h"
#include "WellTables.h"
#include "WriterSettings.h"

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr int usualBuffer = 0;
constexpr int countActiveCells = -1;

class RandomOrderOutput : public CellOutput
{
public:
    explicit RandomOrderOutput(const Options& options)
        : options_(options),
          restart_(options.directory, options.caseName, startDate(), {}, options.formatted, writerParams(options),
                   false)
    {
        restart_.setRestartHeaderInfoCallback(&headerValues_);
    }

    void writeInitial(const Simulator& simulator) override
    {
        const std::vector<FileGrid> grids = fileGrids(simulator.reservoir());
        const std::list<CellValues<float>> porv = poreVolumesOf(grids, simulator);
        InitWriter writer(options_.directory, options_.caseName, startDate(), {}, options_.formatted,
                          writerParams(options_), false);
        writer.setRestartHeaderInfoCallback(&headerValues_);
        for (const FileGrid& grid : grids)
            writer.addGridSpec(gridSpec(grid));
        writer.open();
        // Property by property through all grids.
        std::vector<CellProperty> properties{poreVolumes};
        properties.insert(properties.end(), initialProperties().begin(), initialProperties().end());
        for (const CellProperty& property : properties) {
            auto volumes = porv.begin();
            for (const FileGrid& grid : grids)
                writeProperties(writer.getPropertyWriter(grid.name, *volumes++), grid, {property}, simulator);
        }
        if (simulator.reservoir().localGrid)
            writeLocalFaces(writer, simulator);
        writer.close(usualBuffer);
    }

    void writeStep(const Simulator& simulator, int reportStep) override
    {
        const std::vector<FileGrid> grids = fileGrids(simulator.reservoir());
        const std::list<CellValues<float>> porv = poreVolumesOf(grids, simulator);
        for (const FileGrid& grid : grids)
            restart_.addGridSpec(gridSpec(grid));
        restart_.open(reportStep, simulator.days());
        for (const CellProperty& property : stepProperties()) {
            auto volumes = porv.begin();
            for (const FileGrid& grid : grids)
                writeProperties(restart_.getSolutionWriter(grid.name, *volumes++, countActiveCells), grid, {property},
                                simulator);
        }
        writeWells(restart_, simulator);
        restart_.close(usualBuffer);
    }

private:
    static void writeLocalFaces(const InitWriter& writer, const Simulator& simulator)
    {
        const Reservoir& reservoir = simulator.reservoir();
        const std::vector<LocalFace> faces = outerFaces(reservoir.grid, *reservoir.localGrid);
        writer.getNNCPropertyWriter(reservoir.localGrid->name)
            .write(
                "TRANGL",
                CellValues<float>(faces.size(), [&](std::size_t n) { return transmissibility(faces[n], simulator); }),
                false);
    }

    Options options_;
    HeaderValues headerValues_;
    RestartWriter restart_;
};

} // namespace

std::unique_ptr<CellOutput> makeRandomOrderOutput(const Options& options)
{
    return std::make_unique<RandomOrderOutput>(options);
}

} // namespace waterflood
