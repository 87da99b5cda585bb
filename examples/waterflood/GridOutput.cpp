#include "GridOutput.h"

#include "CornerPoints.h"

#include <mrlio/MrlIO.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr auto cornerPointGrid = static_cast<EGridGRIDHEAD::GridType>(1);

void writeFileHead(KeywordWriter& writer)
{
    constexpr int version = 3, year = 2026;
    writer.write(EGridFILEHEAD(version, year, version, static_cast<EGridFILEHEAD::GridType>(0),
                               static_cast<EGridFILEHEAD::DualSystemType>(0),
                               static_cast<EGridFILEHEAD::OriginalGridType>(1)));
    writer.write(GridMAPUNITS("METRES"));
    // Where the grid's axes lie on the map of the country: here turned by some degrees.
    writer.write(GridMAPAXES(457'800.0F, 6'785'966.0F, 458'000.0F, 6'785'000.0F, 458'966.0F, 6'785'200.0F));
    writer.write(GridGRIDUNIT("METRES", ""));
}

void writeGeometry(KeywordWriter& writer, const Grid& grid)
{
    writer.write(EGridCOORD(pillars(grid)));
    writer.write(EGridZCORN(cornerDepths(grid)));
    writer.write(EGridACTNUM(activeFlags(grid)));
}

void writeWholeGrid(KeywordWriter& writer, const Grid& grid)
{
    writer.write(EGridGRIDHEAD(cornerPointGrid, grid.nx, grid.ny, grid.nz, 0));
    writeGeometry(writer, grid);
    writer.write(EGridENDGRID(EGridENDGRID::getKeywordName()));
}

void writeLocalGrid(KeywordWriter& writer, const LocalGrid& local)
{
    writer.write(EGridLGR(local.name));
    writer.write(EGridLGRPARNT(""));
    writer.write(EGridLGRSGRID(EGridLGRSGRID::getKeywordName(), {"NONE"}));
    EGridGRIDHEAD head(cornerPointGrid, local.grid.nx, local.grid.ny, local.grid.nz, 1);
    constexpr int notRadial = 1;
    head.setStrGridHeadData(1, 1, notRadial, {local.firstI + 1, local.firstJ + 1, 1},
                            {local.lastI + 1, local.lastJ + 1, local.grid.nz});
    writer.write(head);
    writeGeometry(writer, local.grid);
    writer.write(EGridHOSTNUM({local.hosts.begin(), local.hosts.end()})); // counts from 0; the record adds 1
    writer.write(EGridENDGRID(EGridENDGRID::getKeywordName()));
    writer.write(EGridENDLGR(EGridENDLGR::getKeywordName()));
}

void writeOuterFaces(KeywordWriter& writer, const std::vector<LocalFace>& faces)
{
    std::vector<int> localCells, globalCells; // counted from 1, as they stand in the file
    for (const LocalFace& face : faces) {
        localCells.push_back(static_cast<int>(face.localCell) + 1);
        globalCells.push_back(static_cast<int>(face.globalCell) + 1);
    }
    writer.write(EGridNNCHEAD(static_cast<int>(faces.size()), 1));
    writer.write(EGridNNCL(localCells));
    writer.write(EGridNNCG(globalCells));
}

} // namespace

void writeGridFile(const Options& options, const Reservoir& reservoir)
{
    const std::filesystem::path path =
        std::filesystem::path(options.directory) / (options.caseName + (options.formatted ? ".FEGRID" : ".EGRID"));
    if (!options.overwrite && std::filesystem::exists(path))
        throw std::runtime_error(path.string() + " already exists");
    std::ofstream file(path, std::ios::binary);
    KeywordWriter writer(file, options.formatted, Service::FileName(path.string()));
    writeFileHead(writer);
    writeWholeGrid(writer, reservoir.grid);
    if (reservoir.localGrid) {
        writeLocalGrid(writer, *reservoir.localGrid);
        writeOuterFaces(writer, outerFaces(reservoir.grid, *reservoir.localGrid));
    }
    file.close();
    if (!file)
        throw std::runtime_error("can't write " + path.string());
}

} // namespace waterflood
