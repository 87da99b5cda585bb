#include <mrlio/CellActivitiesInfo.h>

#include "core/Fail.h"
#include "initrestart/CellActivity.h"
#include "initrestart/read/CellActivityFlags.h"

#include <mrlio/MrlIOException.h>

#include <cstddef>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inConstructor = "Kvt::Mrl::MrlIO::CellActivitiesInfo::CellActivitiesInfo";

using Flags = std::shared_ptr<const CellActivityFlags>;

Flags shared(std::vector<bool> flags)
{
    return std::make_shared<const CellActivityFlags>(std::move(flags));
}

/// Of the volumes from first to behind last.
Flags byVolumes(const std::vector<float>& porv, const std::vector<float>* rockv, std::size_t first, std::size_t last)
{
    std::vector<bool> flags(last - first);
    for (std::size_t i = first; i < last; ++i)
        flags[i - first] = isActiveCell(porv[i], rockv != nullptr ? rockv->data() + i : nullptr);
    return shared(std::move(flags));
}

} // namespace

CellActivitiesInfo::CellActivitiesInfo() : matrix_(shared({})), fracture_(matrix_) {}

CellActivitiesInfo::CellActivitiesInfo(const std::vector<bool>& matrix, const std::vector<bool>& fracture)
    : matrix_(shared(matrix)),
      fracture_(shared(fracture))
{}

CellActivitiesInfo::CellActivitiesInfo(std::vector<bool>&& matrix, std::vector<bool>&& fracture)
    : matrix_(shared(std::move(matrix))),
      fracture_(shared(std::move(fracture)))
{}

CellActivitiesInfo::CellActivitiesInfo(int cells, bool value, bool dualPorosity)
    : matrix_(std::make_shared<const CellActivityFlags>(cells, value)),
      fracture_(dualPorosity ? matrix_ : shared({}))
{}

CellActivitiesInfo::CellActivitiesInfo(const std::vector<float>& porv, const std::vector<float>* rockv,
                                       bool dualPorosity)
{
    if (dualPorosity && porv.size() % 2 != 0)
        fail<RestartReaderException>(inConstructor, ": PORV array must have even length for dual-porosity data set");
    if (rockv != nullptr && rockv->size() != porv.size())
        fail<RestartReaderException>(inConstructor, ": ROCKV array must be the same size as PORV");
    const std::size_t cells = dualPorosity ? porv.size() / 2 : porv.size();
    matrix_ = byVolumes(porv, rockv, 0, cells);
    fracture_ = byVolumes(porv, rockv, cells, porv.size());
}

CellActivitiesInfo::CellActivitiesInfo(const CellActivitiesInfo& other) = default;

CellActivitiesInfo& CellActivitiesInfo::operator=(const CellActivitiesInfo& other) = default;

CellActivitiesInfo::~CellActivitiesInfo() = default;

const std::vector<bool>& CellActivitiesInfo::activeCells(bool fracture) const
{
    return (fracture ? fracture_ : matrix_)->flags();
}

int CellActivitiesInfo::numActive(bool fracture) const
{
    return static_cast<int>((fracture ? fracture_ : matrix_)->count());
}

} // namespace Kvt::Mrl::MrlIO
