#pragma once

#include "initrestart/write/HeaderArrays.h"

#include <mrlio/GridSpec.h>
#include <mrlio/IGridPropertyArray.h>
#include <mrlio/IGridPropertyWriter.h>
#include <mrlio/SpecStatsData.h>
#include <mrlio/StreamSection.h>

#include <memory>

namespace Kvt::Mrl::MrlIO {

/// The arrays of one grid while they are being written.
struct GridContent
{
    GridLayout layout;
    SpecStatsData rows;                          ///< one per array that is there
    std::shared_ptr<StreamSection> section;      ///< where writer writes to; null when it has gone into the data file
    std::unique_ptr<IGridPropertyWriter> writer; ///< adds to rows; null for a grid without volumes
};

/// How contents are written, the same for all grids of a writer.
struct ContentForm
{
    bool formatted = false;
    bool skipChecks = false;
};

/// The volumes by which the cells of a grid are active. Not owned; rockv may be null.
struct GridVolumes
{
    const IGridPropertyArray<float>& porv;
    const IGridPropertyArray<float>* rockv = nullptr;
};

/// In place of a number of active cells: they are to be counted. Any other negative number says the same.
constexpr int countActiveCells = -1;

/// A grid with volumes. The section isn't touched here.
/// spec          must outlive the content, as must the volumes
/// activeCount   if negative, the active cells are counted
/// throws        std::invalid_argument if the volumes don't fit the grid
std::unique_ptr<GridContent> makeGridContent(const GridSpec& spec, const GridVolumes& volumes, int activeCount,
                                             std::shared_ptr<StreamSection> section, const ContentForm& form);

/// The non-neighbour connections of a grid: arrays that have nothing to do with its cells.
std::unique_ptr<GridContent> makeConnectionContent(const GridSpec& spec, std::shared_ptr<StreamSection> section,
                                                   const ContentForm& form);

} // namespace Kvt::Mrl::MrlIO
