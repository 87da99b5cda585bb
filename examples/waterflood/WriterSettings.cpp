#include "WriterSettings.h"

namespace waterflood {

using namespace Kvt::Mrl::MrlIO;

MrlWriterDefaultParams writerParams(const Options& options)
{
    MrlWriterDefaultParams params{};
    params.overwriteData = params.overwriteSpec = options.overwrite;
    params.unified = options.unified;
    return params;
}

GridSpec gridSpec(const FileGrid& grid)
{
    constexpr auto cornerPoint = static_cast<GridSpec::GridType>(0);
    return {grid.name, grid.cells->nx, grid.cells->ny, grid.cells->nz, UnitSystemType::METRIC, cornerPoint};
}

Service::YearMonthDay startDate()
{
    return {2026, 1, 1};
}

void HeaderValues::getIntegerHeader(const std::string&, std::map<int, int>& values) const
{
    constexpr int phases = 14; // oil is 1, water 2, gas 4
    values[phases] = PhaseType::OIL_WATER + 1;
}

} // namespace waterflood
