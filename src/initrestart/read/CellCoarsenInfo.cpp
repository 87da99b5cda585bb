#include <mrlio/CellCoarsenInfo.h>

#include "core/Fail.h"
#include "initrestart/CellActivity.h"

#include <mrlio/MrlIOException.h>

#include <cstddef>
#include <map>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inConstructor = "Kvt::Mrl::MrlIO::CellCoarsenInfo::CellCoarsenInfo";

struct Group
{
    int representative = 0;
    std::vector<int> cells;
};

} // namespace

class CellCoarsenInfo::Impl
{
public:
    std::map<int, Group> groups;

    const Group* find(int group) const
    {
        const auto found = groups.find(group);
        return found != groups.end() ? &found->second : nullptr;
    }
};

CellCoarsenInfo::CellCoarsenInfo(const std::vector<float>& porv, const std::vector<int>& corsnum,
                                 const std::vector<float>* rockv)
{
    if (corsnum.size() != porv.size())
        fail<RestartReaderException>(inConstructor, ": CORSNUM array must be the same size as PORV");
    if (rockv != nullptr && rockv->size() != porv.size())
        fail<RestartReaderException>(inConstructor, ": ROCKV array must be the same size as PORV");
    auto impl = std::make_shared<Impl>();
    for (std::size_t i = 0; i < corsnum.size(); ++i) {
        if (corsnum[i] < 1)
            continue;
        Group& group = impl->groups[corsnum[i]];
        group.cells.push_back(static_cast<int>(i));
        if (isActiveCell(porv[i], rockv != nullptr ? rockv->data() + i : nullptr))
            group.representative = static_cast<int>(i);
    }
    impl_ = std::move(impl);
}

CellCoarsenInfo::CellCoarsenInfo(const CellCoarsenInfo& other) = default;

CellCoarsenInfo& CellCoarsenInfo::operator=(const CellCoarsenInfo& other) = default;

CellCoarsenInfo::~CellCoarsenInfo() = default;

int CellCoarsenInfo::numGroups() const
{
    return static_cast<int>(impl_->groups.size());
}

void CellCoarsenInfo::groups(std::vector<int>& out) const
{
    out.clear();
    for (const auto& [number, group] : impl_->groups)
        out.push_back(number);
}

bool CellCoarsenInfo::cellsOfGroup(int group, std::vector<int>& out) const
{
    const Group* const found = impl_->find(group);
    if (found == nullptr)
        return false;
    out = found->cells;
    return true;
}

bool CellCoarsenInfo::representative(int group, int& out) const
{
    const Group* const found = impl_->find(group);
    if (found == nullptr)
        return false;
    out = found->representative;
    return true;
}

} // namespace Kvt::Mrl::MrlIO
