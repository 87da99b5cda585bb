#include "initrestart/read/CellActivitiesManager.h"
#include "initrestart/read/CellActivityFlags.h"
#include "support/StepFile.h"

#include <mrlio/CellActivitiesInfo.h>
#include <mrlio/CellCoarsenInfo.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Flags = std::vector<bool>;
using Floats = std::vector<float>;

std::string failure(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RestartReaderException& exception) {
        return exception.what();
    }
    return "";
}

TEST(CellActivities, PoreVolumeOrElseRockVolumeMakesACellActive)
{
    const Floats porv{0.0f, 1e-31f, 1e-4f, -2.0f, std::nanf(""), 0.0f};
    const Floats rockv{0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 3.0f};
    const CellActivitiesInfo plain(porv, nullptr, false);
    EXPECT_EQ(plain.activeCells(false), (Flags{false, false, true, true, true, false}));
    EXPECT_EQ(plain.numActive(false), 3);
    EXPECT_TRUE(plain.activeCells(true).empty());

    const CellActivitiesInfo dual(porv, &rockv, true);
    EXPECT_EQ(dual.activeCells(false), (Flags{false, false, true}));
    EXPECT_EQ(dual.activeCells(true), (Flags{true, true, true}));
    EXPECT_EQ(dual.numActive(true), 3);
}

TEST(CellActivities, CountsFlagsOfAnyNumber)
{
    for (const int count : {0, 1, 63, 64, 65, 128, 1000}) {
        Flags flags(static_cast<std::size_t>(count), true);
        EXPECT_EQ(CellActivitiesInfo(flags, {}).numActive(false), count);
        const CellActivitiesInfo uniform(count, true, true);
        EXPECT_EQ(uniform.numActive(true), count);
        EXPECT_EQ(uniform.activeCells(true), flags);
        EXPECT_EQ(CellActivityFlags::of(uniform, false)->words(), CellActivityFlags(flags).words());
        EXPECT_EQ(CellActivitiesInfo(count, false, false).activeCells(false), Flags(flags.size(), false));
        flags.insert(flags.end(), {false, true, false});
        EXPECT_EQ(CellActivitiesInfo({}, flags).numActive(true), count + 1);
    }
    EXPECT_TRUE(CellActivitiesInfo(-1, true, true).activeCells(true).empty());
    EXPECT_EQ(CellActivitiesInfo(2147483647, true, false).numActive(false), 2147483647) << "without so many flags";
    CellActivitiesInfo info({true}, {false});
    const CellActivitiesInfo copy = info;
    info = CellActivitiesInfo();
    EXPECT_EQ(copy.activeCells(false), Flags{true}) << "copies outlive what they were made of";
}

TEST(CellCoarsening, LastCellWithVolumeRepresentsAGroup)
{
    //                      0     1     2     3     4     5     6
    const Floats porv{0.0f, 1.0f, 2.0f, 0.0f, 0.0f, 0.0f, 1.0f};
    const Floats rockv{0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.0f};
    const std::vector<int> corsnum{0, 3, 3, 3, 1, 1, -2};
    for (const bool thermal : {false, true}) {
        const CellCoarsenInfo info(porv, corsnum, thermal ? &rockv : nullptr);
        std::vector<int> out;
        info.groups(out);
        EXPECT_EQ(out, (std::vector<int>{1, 3}));
        EXPECT_EQ(info.numGroups(), 2);
        EXPECT_TRUE(info.cellsOfGroup(3, out));
        int cell = -1;
        EXPECT_FALSE(info.representative(2, cell) || info.cellsOfGroup(-2, out));
        EXPECT_EQ(cell, -1) << "unknown groups leave the output alone";
        EXPECT_EQ(out, (std::vector<int>{1, 2, 3}));
        EXPECT_TRUE(info.representative(3, cell));
        EXPECT_EQ(cell, thermal ? 3 : 2);
        EXPECT_TRUE(info.representative(1, cell));
        EXPECT_EQ(cell, 0) << "without any volume";
    }
}

TEST(CellVolumes, AreRefusedUnlessTheyFit)
{
    const Floats eleven(11, 1.0f);
    const Floats ten(10, 1.0f);
    const std::string activities = "Kvt::Mrl::MrlIO::CellActivitiesInfo::CellActivitiesInfo: ";
    EXPECT_EQ(failure([&] { CellActivitiesInfo(eleven, nullptr, true); }),
              activities + "PORV array must have even length for dual-porosity data set");
    EXPECT_EQ(failure([&] { CellActivitiesInfo(ten, &eleven, true); }),
              activities + "ROCKV array must be the same size as PORV");
    const std::string coarsening = "Kvt::Mrl::MrlIO::CellCoarsenInfo::CellCoarsenInfo: ";
    EXPECT_EQ(failure([&] { CellCoarsenInfo(ten, std::vector<int>(11), nullptr); }),
              coarsening + "CORSNUM array must be the same size as PORV");
    EXPECT_EQ(failure([&] { CellCoarsenInfo(ten, std::vector<int>(10), &eleven); }),
              coarsening + "ROCKV array must be the same size as PORV");
}

/// Volumes and flags by grid, that may be missing or fail.
class Sources : public IPORVSource, public IROCKVSource, public ICellActivitiesSource
{
public:
    std::map<std::string, Floats> volumes; // by array and grid
    std::map<std::string, Flags> flags;
    std::string damage; // why the rock volumes can't be read

    bool getPORV(Floats& out, const std::string& lgr) const override { return get(volumes, out, "PORV" + lgr); }

    bool getROCKV(Floats& out, const std::string& lgr) const override
    {
        if (!damage.empty())
            throw MrlIOException(damage);
        return get(volumes, out, "ROCKV" + lgr);
    }

    bool getCellActivities(Flags& out, const std::string& lgr, bool fracture) const override
    {
        return get(flags, out, lgr + (fracture ? "/fracture" : ""));
    }

private:
    template <class T>
    static bool get(const std::map<std::string, T>& all, T& out, const std::string& key)
    {
        const auto found = all.find(key);
        out = found != all.end() ? found->second : T();
        return found != all.end();
    }
};

TEST(CellActivitiesManager, TriesAfreshAfterAFailure)
{
    KnownHeaders headers;
    headers.cells = 3;
    headers.active = 2;
    headers.lgrs = {"LGR1"};
    Sources sources;
    CellActivitiesManager manager(std::make_unique<PopulatorFromINIT>(sources, sources, headers), headers);
    const std::string noPorv = "RestartReader: cannot fetch PORV array from INIT file";
    EXPECT_EQ(failure([&] { manager.getCellActivitiesInfo(""); }), noPorv);
    sources.volumes["PORV"] = {1.0f, 0.0f, 1.0f};
    EXPECT_EQ(failure([&] { manager.getCellActivitiesInfo(""); }), noPorv) << "one grid spoils all";
    sources.volumes["PORVLGR1"] = {0.0f, 0.0f, 0.0f};
    sources.volumes["ROCKVLGR1"] = {0.0f, 1.0f, 1.0f};
    sources.damage = "cut off";
    EXPECT_EQ(failure([&] { manager.getCellActivitiesInfo(""); }),
              "RestartReader: cannot fetch ROCKV array from INIT file\ncut off");
    sources.damage.clear();
    EXPECT_EQ(manager.getCellActivitiesInfo("").activeCells(false), (Flags{true, false, true}));
    EXPECT_EQ(manager.getCellActivitiesInfo("LGR1").activeCells(false), (Flags{false, true, true}));
    EXPECT_TRUE(manager.getCellActivitiesInfo("LGR2").activeCells(true).empty());
}

TEST(CellActivitiesManager, TakesTheWordOfTheProgramWhereCellsAreInactive)
{
    KnownHeaders headers;
    headers.cells = 2;
    headers.active = 3;
    headers.dualPorosity = true;
    headers.lgrs = {"LGR1"};
    Sources sources;
    sources.flags[""] = {true, true};
    sources.flags["/fracture"] = {true, false};
    CellActivitiesManager manager(std::make_unique<PopulatorFromSource>(sources, headers), headers);
    EXPECT_EQ(manager.getCellActivitiesInfo("").activeCells(false), (Flags{true, true}));
    EXPECT_EQ(manager.getCellActivitiesInfo("").activeCells(true), (Flags{true, false}));
    EXPECT_TRUE(manager.getCellActivitiesInfo("LGR1").activeCells(false).empty());

    headers.active = 4;
    const Sources none;
    CellActivitiesManager bySource(std::make_unique<PopulatorFromSource>(none, headers), headers);
    EXPECT_EQ(bySource.getCellActivitiesInfo("").activeCells(true), Flags(2, true));
    CellActivitiesManager byInit(std::make_unique<PopulatorFromINIT>(none, none, headers), headers);
    EXPECT_EQ(byInit.getCellActivitiesInfo("LGR1").activeCells(true), Flags(2, true));
}

} // namespace
