#include "GridPlan.h"

#include <mrlio/MrlIO.h>

#include <cstdint>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// Walks a grid file and keeps the pillars. Depths of the cells' corners, the largest array, are passed over.
class PillarReader : public GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::processKeyword;

    void processKeyword(EGridLGR& name) override
    {
        readData(name);
        grid_ = name.array().empty() ? std::string() : name.array().front();
    }

    void processKeyword(EGridGRIDHEAD& head) override { size_ = head.getGridSize(); }

    void processKeyword(EGridCOORD& lines) override
    {
        constexpr std::size_t numbersPerPillar = 6; // x, y, z of the upper end and of the lower one
        const std::int64_t count = (std::int64_t{size_.x} + 1) * (std::int64_t{size_.y} + 1);
        if (size_.x < 1 || size_.y < 1 || lines.size() != count * std::int64_t{numbersPerPillar})
            return;
        readData(lines);
        GridPlan plan{size_.x, size_.y, {}};
        for (std::size_t n = 0; n + numbersPerPillar <= lines.array().size(); n += numbersPerPillar)
            plan.pillars.push_back({lines.array()[n], lines.array()[n + 1]});
        plans[grid_] = std::move(plan);
    }

    void processKeyword(EGridENDGRID&) override { grid_.clear(); }

    std::map<std::string, GridPlan> plans;

private:
    std::string grid_;
    Index3 size_;
};

} // namespace

Point GridPlan::middle(int i, int j) const
{
    const Point &a = pillar(i, j), &b = pillar(i + 1, j), &c = pillar(i, j + 1), &d = pillar(i + 1, j + 1);
    return {(a.x + b.x + c.x + d.x) / 4.0, (a.y + b.y + c.y + d.y) / 4.0};
}

std::map<std::string, GridPlan> readGridPlans(const std::string& gridFile)
{
    PillarReader plans;
    if (const auto reader = MorvaneReaderUtils::createReader(gridFile, FileIdentifiers::Grid::isFormatted(gridFile)))
        plans.processFile(reader.get());
    return plans.plans;
}

GridPlan evenPlan(int nx, int ny)
{
    GridPlan plan{nx, ny, {}};
    for (int j = 0; j <= ny; ++j)
        for (int i = 0; i <= nx; ++i)
            plan.pillars.push_back({static_cast<double>(i), static_cast<double>(j)});
    return plan;
}

} // namespace casereport
