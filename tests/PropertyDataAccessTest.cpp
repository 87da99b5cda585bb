#include "initrestart/read/PropertyDataAccess.h"
#include "initrestart/read/PropertyData.h"
#include "initrestart/read/PropertyValues.h"
#include "support/StepFile.h"

#include <mrlio/CellActivitiesInfo.h>
#include <mrlio/CellCoarsenInfo.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Flags = std::vector<bool>;
using Floats = std::vector<float>;
using Ints = std::vector<int>;
using Strings = std::vector<std::string>;

constexpr int noInt = std::numeric_limits<int>::lowest();
constexpr float noFloat = std::numeric_limits<float>::lowest();
constexpr double noDouble = std::numeric_limits<double>::lowest();

/// A step with all that its properties need. The same flags and groups serve for every grid.
class PropertyStep : public ::testing::Test, public ICellActivitiesInfoSource, public ICellCoarsenInfoSource
{
protected:
    const ICellActivitiesInfo& getCellActivitiesInfo(const std::string&) override { return activities; }

    const ICellCoarsenInfo* getCellCoarsenInfo(const std::string&) override { return coarsen ? &*coarsen : nullptr; }

    void setActive(const Flags& matrix, const Flags& fracture = {})
    {
        activities = CellActivitiesInfo(matrix, fracture);
        headers.cells = static_cast<int>(matrix.size());
        headers.active = activities.numActive(false) + activities.numActive(true);
        headers.dualPorosity = !fracture.empty();
    }

    /// On the file as it is now.
    PropertyDataAccess& access(int cacheLimit = -1)
    {
        raw = std::make_unique<RawDataAccess>(file.access());
        cache = std::make_unique<PropertyCache>(cacheLimit);
        const RestartReaderEnvironment environment{&headers, this, this, cache.get()};
        access_ = std::make_unique<PropertyDataAccess>(*raw, environment);
        return *access_;
    }

    template <class T>
    std::vector<T> get(const std::string& name, bool fracture = false) const
    {
        std::vector<T> out(1);
        EXPECT_TRUE(access_->getAnyArray(name, out, {}, fracture)) << name;
        return out;
    }

    template <class T>
    std::string failure(const std::string& name) const
    {
        std::vector<T> out(1);
        try {
            access_->getAnyArray(name, out);
        } catch (const MrlIOException& exception) {
            EXPECT_TRUE(out.empty());
            return exception.what();
        }
        return "read";
    }

    StepFile file;
    KnownHeaders headers;
    CellActivitiesInfo activities;
    std::optional<CellCoarsenInfo> coarsen;
    std::unique_ptr<RawDataAccess> raw;
    std::unique_ptr<PropertyCache> cache;

private:
    std::unique_ptr<PropertyDataAccess> access_;
};

TEST_F(PropertyStep, ArraysOfAllOrActiveCellsAreProperties)
{
    setActive({true, false, true});
    file.add("SWAT", {1.0f, 2.0f}).add("INTEHEAD", {1, 2, 3}).add("PORV", {1.0f, 2.0f, 3.0f}).add("NNC1", {1});
    file.add("SWAT", {1, 2, 3}).row("MESSAGE", ValueType::MESS, 3).row("LOST", ValueType::INTE, 0);
    file.add("SGAS", Floats{1.0f, 2.0f}, "LGR1");
    file.index.stats.numbers.back() = -1;
    const PropertyDataAccess& properties = access();
    std::filesystem::remove(file.path());
    EXPECT_EQ(properties.properties().names(), (Strings{"SWAT", "PORV"}));
    EXPECT_FALSE(properties.hasProperty("INTEHEAD"));
    EXPECT_FALSE(properties.hasProperty("SGAS", "LGR1")) << "the headers don't know it";
    EXPECT_FALSE(properties.hasProperty("SWAT", "LGR2"));
    BasicArrayInfo info;
    EXPECT_FALSE(properties.getArrayInfo("SWAT", info, "", true));
    ASSERT_TRUE(properties.getArrayInfo("SWAT", info));
    EXPECT_EQ(info.getSize(), 3);
    EXPECT_EQ(info.getType(), ValueType::REAL) << "the first of a name counts";

    headers.lgrs = {"LGR1"};
    EXPECT_TRUE(access().hasProperty("SGAS", "LGR1"));
}

TEST_F(PropertyStep, InactiveCellsHoldTheFillValue)
{
    setActive({false, true, true, false});
    file.add("DOUBLES", {1.0, 2.0}).add("REALS", {1.0f, 2.0f}).add("INTS", {1, 2}).add("TEXTS", Strings{"A", "B"});
    file.row("FLAGS", ValueType::LOGI, 2).content.logicals("FLAGS", {1, 0});
    file.add("FULL", {1, 2, 3, 4});
    access();
    EXPECT_EQ(get<double>("DOUBLES"), (std::vector<double>{noDouble, 1.0, 2.0, noDouble}));
    EXPECT_EQ(get<float>("REALS"), (Floats{noFloat, 1.0f, 2.0f, noFloat}));
    EXPECT_EQ(get<double>("REALS"), (std::vector<double>{noFloat, 1.0, 2.0, noFloat}));
    EXPECT_EQ(get<int>("FLAGS"), (Ints{noInt, 1, 0, noInt}));
    EXPECT_EQ(get<float>("INTS"), (Floats{-2147483648.0f, 1.0f, 2.0f, -2147483648.0f}));
    EXPECT_EQ(get<std::string>("TEXTS"), (Strings{"", "A", "B", ""}));
    EXPECT_EQ(get<double>("FULL"), (std::vector<double>{1, 2, 3, 4}));
    for (const char* name : {"DOUBLES", "TEXTS"})
        EXPECT_EQ(failure<int>(name).rfind("MrlI0::ArrayConverter: can not convert ", 0), 0u);
    for (const auto& [name, lgr, fracture] :
         {std::tuple("SOIL", "", false), std::tuple("INTS", "LGR2", false), std::tuple("INTS", "", true)}) {
        Ints out{1};
        EXPECT_FALSE(access().getAnyArray(name, out, lgr, fracture));
        EXPECT_TRUE(out.empty());
    }
}

TEST(PropertyValues, SpreadAsAPlainLoopDoes)
{
    for (const std::size_t cells : {1u, 63u, 64u, 65u, 1000u, 8191u, 8192u, 8193u, 20001u}) {
        Flags flags(cells);
        Ints values;
        Ints expected(cells, noInt);
        std::uint32_t random = 1;
        for (std::size_t i = 0; i < cells; ++i) {
            random = random * 1664525u + 1013904223u;
            // Words without any, with some and with all cells active.
            const std::size_t kind = i / 64 % 3;
            flags[i] = kind == 2 || (kind == 0 && random >> 31 != 0);
            if (flags[i])
                values.push_back(expected[i] = static_cast<int>(i));
        }
        const PropertyValues<int> spread(values, std::make_shared<CellActivityFlags>(flags));
        for (const std::size_t before : {std::size_t{0}, cells, 2 * cells}) {
            Ints out(before, 7);
            spread.copyTo(out);
            EXPECT_EQ(out, expected) << cells << " cells into " << before;
            std::vector<double> wide(before, 7.0);
            spread.copyTo(wide);
            EXPECT_EQ(wide, std::vector<double>(expected.begin(), expected.end()));
        }
    }
}

TEST_F(PropertyStep, FractureValuesFollowThoseOfTheMatrix)
{
    setActive({true, false, true}, {false, false, true});
    file.add("FULL", {1, 2, 3, 4, 5, 6}).add("ACTIVE", {1, 2, 3});
    access();
    EXPECT_EQ(get<int>("FULL"), (Ints{1, 2, 3}));
    EXPECT_EQ(get<int>("FULL", true), (Ints{4, 5, 6}));
    EXPECT_EQ(get<int>("ACTIVE", true), (Ints{noInt, noInt, 3}));
    EXPECT_EQ(get<int>("ACTIVE"), (Ints{1, noInt, 2}));
}

TEST_F(PropertyStep, FlagsThatDontFitAreRefused)
{
    const std::string told = "Number of active cells does not match property data";
    file.add("SWAT", {1, 2}).add("FULL", {1, 2, 3});

    const std::pair<Flags, Flags> cases[] = {
        {{true, true, true}, {}}, {{true, true, false}, {true}}, {{true, true, false, false}, {}}, {{true, true}, {}}};
    for (const auto& [matrix, fracture] : cases) {
        SCOPED_TRACE(testing::PrintToString(matrix));
        headers.cells = 3;
        headers.active = 2;
        activities = CellActivitiesInfo(matrix, fracture);
        access();
        EXPECT_EQ(failure<int>("SWAT"), told);
        EXPECT_EQ(get<int>("FULL"), (Ints{1, 2, 3})) << "the access survives";
        activities = CellActivitiesInfo({true, false, true}, {});
        EXPECT_EQ(get<int>("SWAT"), (Ints{1, noInt, 2})) << "and tries afresh";
    }
    headers.cells = 2000000000;
    activities = CellActivitiesInfo(Flags(5, true), {});
    access();
    EXPECT_EQ(failure<int>("SWAT"), told) << "before anything of that size is allocated";
}

TEST_F(PropertyStep, LimitReleasesTheOldestProperty)
{
    setActive({true, false});
    file.add("A", {1}).add("B", {2}).add("C", {3});
    for (const int limit : {2, 0, -1}) {
        access(limit);
        for (const char* name : {"A", "B", "A", "C", "A"}) // the last time afresh with a limit of 2, so that B goes
            get<int>(name);
        std::filesystem::remove(file.path());
        EXPECT_EQ(cache->size(), limit == 2 ? 2u : 0u);
        EXPECT_EQ(failure<int>("B") != "read", limit == 2);
        EXPECT_EQ(get<int>("A"), (Ints{1, noInt}));
        EXPECT_EQ(get<int>("C"), (Ints{3, noInt}));
    }
}

TEST_F(PropertyStep, CellsOfAGroupShowItsValue)
{
    setActive({false, true, false, true});
    coarsen.emplace(Floats{0, 1, 0, 1}, Ints{5, 5, 0, 5}, nullptr); // cell 3 represents 0, 1 and 3
    file.add("PORV", {0.0f, 1.0f, 2.0f, 3.0f}).add("PERMX", {0.0f, 1.0f, 2.0f, 3.0f}).add("SWAT", {10, 20});
    access();
    EXPECT_EQ(get<float>("PORV"), (Floats{3, 3, 2, 3}));
    EXPECT_EQ(get<float>("PERMX"), (Floats{0, 1, 2, 3})) << "another array of all cells";
    EXPECT_EQ(get<int>("SWAT"), (Ints{20, 20, noInt, 20}));

    // Group 1 without volume takes cell 0, which group 2 changes only later.
    coarsen.emplace(Floats{0, 1, 0, 1}, Ints{2, 2, 1, 0}, nullptr);
    access();
    EXPECT_EQ(get<float>("PORV"), (Floats{1, 1, 0, 3}));
}

TEST_F(PropertyStep, GroupsOfTheFractureLieBehindTheMatrix)
{
    setActive({true, true, true}, {true, true, true});
    file.add("PORV", {1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f});
    coarsen.emplace(Floats{1, 1, 0, 1, 0, 1}, Ints{1, 1, 0, 2, 2, 0}, nullptr);
    access();
    EXPECT_EQ(get<float>("PORV"), (Floats{2, 2, 3})) << "group 2 is represented in the fracture";
    EXPECT_EQ(get<float>("PORV", true), (Floats{5, 5, 6})) << "by group 1, then within group 2";

    // Beyond this grid: a cell of group 3, the representative of group 4.
    coarsen.emplace(Floats{1, 1, 1, 1, 1, 1, 1, 1, 0}, Ints{3, 3, 4, 0, 0, 0, 0, 4, 3}, nullptr);
    access();
    EXPECT_EQ(get<float>("PORV"), (Floats{2, 2, 3}));
    EXPECT_EQ(get<float>("PORV", true), (Floats{5, 5, 6}));
}

TEST_F(PropertyStep, ExtremaComeFromTheIndexOrElseFromTheValues)
{
    setActive({true, false, true, true});
    file.add("KNOWN", {1.0f, 2.0f, 3.0f}).add("UNKNOWN", {4.0f, 2.0f, 3.0f}).add("EMPTY", {noFloat, noFloat, noFloat});
    file.index.stats.minima = {-1.0, PropertyData::unknown, PropertyData::unknown};
    file.index.stats.maxima = {9.0, PropertyData::unknown, PropertyData::unknown};
    const PropertyDataAccess& properties = access(2);
    const auto extremaOf = [&properties](const char* name) {
        ArrayInfo info;
        EXPECT_TRUE(properties.getArrayInfo(name, info));
        EXPECT_EQ(info.getSize(), 4);
        return std::pair(info.getMin(), info.getMax());
    };
    EXPECT_EQ(extremaOf("UNKNOWN"), std::pair(2.0, 4.0));
    EXPECT_EQ(extremaOf("EMPTY"), std::pair(PropertyData::unknown, PropertyData::unknown));
    EXPECT_EQ(extremaOf("KNOWN"), std::pair(-1.0, 9.0));
    EXPECT_EQ(cache->size(), 2u) << "what was known wasn't read";
}

TEST_F(PropertyStep, TypesThatPropertiesDontHaveAreRefused)
{
    setActive({true}, {true});
    file.add("SWAT", {1, 2});
    access();
    ArrayInfo info;
    info.setType(ValueType::INTE);
    const auto matrix = PropertyData::create(info, 1, false);
    info.setType(ValueType::LOGI);
    const auto fracture = PropertyData::create(info, 1, false);
    EXPECT_THROW(matrix->populateArray("SWAT", "", fracture.get(), activities, *raw, nullptr), RestartReaderException);
    EXPECT_FALSE(matrix->isLoaded());
    file.index.stats.types[0] = ValueType::X231;
    access();
    EXPECT_EQ(failure<int>("SWAT"), "Kvt::Mrl::MrlIO::PropertyData::create: unhandled type");
}

} // namespace
