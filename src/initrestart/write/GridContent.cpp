#include "initrestart/write/GridContent.h"

#include "core/Fail.h"
#include "initrestart/write/ActiveCells.h"
#include "initrestart/write/GridPropertyWriterBase.h"

#include <mrlio/GridDef.h>

#include <cstdint>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

GridDef gridDef(const GridSpec& spec, const GridVolumes& volumes, bool skipChecks)
{
    if (volumes.rockv == nullptr)
        return {spec, volumes.porv, skipChecks};
    return {spec, volumes.porv, *volumes.rockv, skipChecks};
}

int countActive(ActiveCells& activeCells)
{
    const std::int64_t count = activeCells.count();
    if (!std::in_range<int>(count))
        fail<std::invalid_argument>("Too many active cells: ", count, ".");
    return static_cast<int>(count);
}

} // namespace

std::unique_ptr<GridContent> makeGridContent(const GridSpec& spec, const GridVolumes& volumes, int activeCount,
                                             std::shared_ptr<StreamSection> section, const ContentForm& form)
{
    const auto activeCells = std::make_shared<ActiveCells>(gridDef(spec, volumes, form.skipChecks));
    auto content = std::make_unique<GridContent>();
    content->layout = {.activeCount = activeCount < 0 ? countActive(*activeCells) : activeCount,
                       .dualPorosity = volumes.porv.isDualPorosity()};
    content->section = std::move(section);
    content->writer =
        makeGridPropertyWriter(form.formatted, {.grid = spec,
                                                .activeCells = activeCells,
                                                .section = content->section,
                                                .rows = &content->rows,
                                                .checks = form.skipChecks ? ArrayChecks::None : ArrayChecks::All});
    return content;
}

std::unique_ptr<GridContent> makeConnectionContent(const GridSpec& spec, std::shared_ptr<StreamSection> section,
                                                   const ContentForm& form)
{
    auto content = std::make_unique<GridContent>();
    content->section = std::move(section);
    content->writer =
        makeGridPropertyWriter(form.formatted, {.grid = GridSpec("dummy", 1, 1, 1, spec.getUnits(), spec.getType()),
                                                .activeCells = nullptr,
                                                .section = content->section,
                                                .rows = &content->rows,
                                                .checks = form.skipChecks ? ArrayChecks::None : ArrayChecks::NameOnly});
    return content;
}

} // namespace Kvt::Mrl::MrlIO
