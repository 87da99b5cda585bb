#include <mrlio/GridCellCoordinates.h>
#include <mrlio/GridDef.h>
#include <mrlio/GridSpec.h>
#include <mrlio/RestartSpec.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;

namespace {

constexpr auto anyType = static_cast<GridSpec::GridType>(3);

/// Claims a size and fails from a cell of choice on, in matrix or fracture.
class Cells : public IGridPropertyArray<float>
{
public:
    explicit Cells(int size) : size_(size) {}

    int size() const override { return size_; }

    float getValue(int cell) const override { return checked(cell, matrixEnd); }

    float getFractureValue(int cell) const override { return checked(cell, fractureEnd); }

    bool isDualPorosity() const override { return dual; }

    int matrixEnd = std::numeric_limits<int>::max();
    int fractureEnd = std::numeric_limits<int>::max();
    bool dual = false;
    bool throwsNumbers = false;
    mutable int reads = 0;

private:
    float checked(int cell, int end) const
    {
        ++reads;
        if (cell >= end && throwsNumbers)
            throw cell;
        if (cell >= end)
            throw std::out_of_range("no such cell");
        return 1.0F;
    }

    int size_;
};

std::string refusal(const std::function<void()>& build)
{
    try {
        build();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "accepted";
}

std::string gridRefusal(int nx, int ny, int nz, UnitSystemType::Enum units = UnitSystemType::METRIC)
{
    return refusal([&] { GridSpec("", nx, ny, nz, units, anyType); });
}

} // namespace

TEST(GridSpec, ChecksUnitsAheadOfDimensions)
{
    EXPECT_EQ(gridRefusal(1, 1, 1), "accepted");
    EXPECT_EQ(gridRefusal(0, 5, 5), "Invalid grid dimensions. (0, 5, 5). All dimensions must be > 1.");
    EXPECT_EQ(gridRefusal(5, -1, 5), "Invalid grid dimensions. (5, -1, 5). All dimensions must be > 1.");
    EXPECT_EQ(gridRefusal(5, 5, 0), "Invalid grid dimensions. (5, 5, 0). All dimensions must be > 1.");
    EXPECT_EQ(gridRefusal(0, 5, 5, static_cast<UnitSystemType::Enum>(4)), "Invalid grid units: ");
    EXPECT_EQ(gridRefusal(1, 1, 1, static_cast<UnitSystemType::Enum>(5)), "accepted");
}

TEST(GridSpec, CountsCellsInThirtyTwoBits)
{
    const GridSpec named("LGR1", 3, 4, 5, UnitSystemType::LAB, GridSpec::Radial);
    EXPECT_EQ(named.getLgrName(), "LGR1");
    EXPECT_EQ(named.getNoCells(), 60);
    EXPECT_EQ(GridSpec(65536, 65536, 1, UnitSystemType::METRIC, anyType).getNoCells(), 0);
    EXPECT_EQ(GridSpec(65536, 32768, 1, UnitSystemType::METRIC, anyType).getNoCells(), std::numeric_limits<int>::min());
}

TEST(GridDef, RefusesArraysOfAnotherSize)
{
    const GridSpec grid(2, 2, 3, UnitSystemType::METRIC, anyType);
    const Cells right(12), wrong(11);
    EXPECT_EQ(refusal([&] { GridDef(grid, wrong, false); }),
              "Pore volume array size (11) is inconsistent with grid dimensions (12). ");
    EXPECT_EQ(refusal([&] { GridDef(grid, right, wrong, false); }),
              "Rock volume array size (11) is inconsistent with grid dimensions (12). ");
    EXPECT_EQ(refusal([&] { GridDef(grid, wrong, wrong, true); }), "accepted");
    EXPECT_EQ(right.reads, 0);

    const GridSpec huge(65536, 32768, 1, UnitSystemType::METRIC, anyType);
    EXPECT_EQ(refusal([&] { GridDef(huge, right, false); }),
              "Pore volume array size (12) is inconsistent with grid dimensions (2147483648). ");
}

TEST(GridDef, RefusesOneArrayOfDualPorosity)
{
    const GridSpec grid(2, 2, 3, UnitSystemType::METRIC, anyType);
    Cells porv(12), wrongSize(11);
    const Cells rockv(12);
    porv.dual = true;
    EXPECT_EQ(refusal([&] { GridDef(grid, porv, rockv, false); }),
              "Incompatible pore volume and rock volume property arrays");
    EXPECT_EQ(refusal([&] { GridDef(grid, porv, wrongSize, false); }),
              "Rock volume array size (11) is inconsistent with grid dimensions (12). ");
}

TEST(GridDef, ReadsEachCellOfEachArray)
{
    const GridSpec grid(2, 2, 3, UnitSystemType::METRIC, anyType);
    const auto refusalWith = [&](const std::function<void(Cells&, Cells&)>& spoil) {
        Cells porv(12), rockv(12);
        porv.dual = rockv.dual = true;
        spoil(porv, rockv);
        return refusal([&] { GridDef(grid, porv, rockv, false); });
    };
    EXPECT_EQ(refusalWith([](Cells&, Cells&) {}), "accepted");
    const std::string tail = ") is inconsistent with grid dimensions (12). ";
    EXPECT_EQ(refusalWith([](Cells& porv, Cells& rockv) { porv.matrixEnd = 7, rockv.matrixEnd = 0; }),
              "Pore volume matrix array size (6" + tail);
    EXPECT_EQ(refusalWith([](Cells& porv, Cells&) { porv.matrixEnd = 0; }), "Pore volume matrix array size (-1" + tail);
    EXPECT_EQ(refusalWith([](Cells& porv, Cells& rockv) { porv.fractureEnd = 11, rockv.matrixEnd = 0; }),
              "Pore volume fracture array size (10" + tail);
    EXPECT_EQ(refusalWith([](Cells&, Cells& rockv) { rockv.matrixEnd = 3, rockv.fractureEnd = 0; }),
              "Rock volume matrix array size (2" + tail);
    EXPECT_EQ(refusalWith([](Cells&, Cells& rockv) { rockv.fractureEnd = 5; }),
              "Rock volume fracture array size (4" + tail);

    Cells numbers(12);
    numbers.matrixEnd = 4;
    numbers.throwsNumbers = true;
    EXPECT_THROW(GridDef(grid, numbers, false), int);
}

TEST(GridDef, HandsOutWhatItWasGiven)
{
    const GridSpec grid(2, 2, 3, UnitSystemType::METRIC, anyType);
    const Cells porv(12), rockv(12);
    const GridDef without(grid, porv, false), with(grid, porv, rockv, false);
    EXPECT_EQ(&without.getGridSpec(), &grid);
    EXPECT_EQ(without.getRockvArray(), nullptr);
    EXPECT_EQ(&with.getPorvArray(), &porv);
    EXPECT_EQ(with.getRockvArray(), &rockv);
    EXPECT_EQ(porv.reads, 24);
}

TEST(GridCellCoordinates, OnlyTheDefaultIsNoCell)
{
    EXPECT_FALSE(GridCellCoordinates().isCellValid());
    EXPECT_TRUE(GridCellCoordinates(1, 1, 1).isCellValid());
    EXPECT_NE(GridCellCoordinates(1, 2, 3), GridCellCoordinates(1, 2, 4));
    EXPECT_EQ(refusal([] { GridCellCoordinates(1, 4000000000U, 0); }),
              "Invalid coordinates : (1,4000000000,0). Coordinates cannot be < 0.");
    EXPECT_EQ(refusal([] { GridCellCoordinates(0, 1, 1); }),
              "Invalid coordinates : (0,1,1). Coordinates cannot be < 0.");
    EXPECT_EQ(refusal([] { GridCellCoordinates(1, 0, 1); }),
              "Invalid coordinates : (1,0,1). Coordinates cannot be < 0.");
}

TEST(RestartSpec, RefusesImpossiblePlaces)
{
    const auto refused = [](const std::string& root, int reportStep, int miniStep, float days) {
        return refusal([&] { RestartSpec(root, reportStep, miniStep, days); });
    };
    const std::string longRoot(73, 'R');
    EXPECT_EQ(refused("", 1, 0, 0.0F), "accepted");
    EXPECT_EQ(refused(longRoot.substr(1), 1, 0, -0.0F), "accepted");
    EXPECT_EQ(refused(longRoot, 0, -1, -1.0F),
              "Invalid Restart root name: " + longRoot + ".  Names longer than 72 characters are not supported.");
    EXPECT_EQ(refused("R", 0, -1, -1.0F), "Invalid report step: 0. Report step must be >= 1.");
    EXPECT_EQ(refused("R", 5, -1, -1.0F), "Invalid ministep: 5. Ministep must be >= 0.");
    const std::string wrongTime = "Invalid elapsed time: 5. Elapsed time must be >= 0.0.";
    EXPECT_EQ(refused("R", 5, 0, -1.0F), wrongTime);
    EXPECT_EQ(refused("R", 5, 0, std::numeric_limits<float>::quiet_NaN()), wrongTime);
    EXPECT_EQ(refused("R", 5, 0, std::numeric_limits<float>::infinity()), wrongTime);
}
