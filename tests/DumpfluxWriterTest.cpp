// What the dumpflux writer puts into a file, what it refuses, and what a refusal or a failure leaves behind.

#include "support/FullDisk.h"
#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/DumpfluxReader.h>
#include <mrlio/DumpfluxWriter.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Sim = Kvt::Mrl::Core::Keywords::SimulatorType;

namespace {

/// The text of a std::invalid_argument; other exceptions are told apart.
std::string refusal(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::invalid_argument& error) {
        return error.what();
    } catch (const std::exception& error) {
        return std::string("other: ") + error.what();
    }
    return "none";
}

struct Property final : IDumpfluxPropertyArray
{
    Property(const std::string& itsName, const std::vector<double>& itsValues) : name(itsName), values(itsValues) {}

    int size() const override { return static_cast<int>(values.size()); }

    double getValue(int i) const override { return values.at(static_cast<std::size_t>(i)); }

    std::string getName() const override { return name; }

    std::string name;
    std::vector<double> values;
};

struct Properties final : IDumpfluxPropertiesArray
{
    Properties(std::initializer_list<Property> list) : items(list) {}

    int size() const override { return static_cast<int>(items.size()); }

    const IDumpfluxPropertyArray& get(int i) const override { return items.at(static_cast<std::size_t>(i)); }

    std::vector<Property> items;
};

struct Connections final : IDumpfluxConnectionArray
{
    int size() const override { return claimedSize.value_or(static_cast<int>(items.size())); }

    DumpfluxConnection get(int i) const override
    {
        if (onGet)
            onGet();
        return items.at(static_cast<std::size_t>(i));
    }

    std::vector<DumpfluxConnection> items{{1, 2, 1, 1, 2, true}, {3, 4, 2, 2, 1, false}};
    std::function<void()> onGet;
    std::optional<int> claimedSize;
};

struct Components final : IDumpfluxWellComponentsArray
{
    int size() const override { return static_cast<int>(items.size()); }

    DumpfluxWellComponentData get(int i) const override { return items.at(static_cast<std::size_t>(i)); }

    std::vector<DumpfluxWellComponentData> items;
};

struct Well
{
    std::string name;
    double oil = 0.0;
    std::optional<std::vector<DumpfluxWellComponentData>> components{};
};

/// Serves all wells through one flow and one component object.
struct Wells final : IDumpfluxWellDataArray
{
    Wells(std::initializer_list<Well> list) : items(list) {}

    int size() const override { return static_cast<int>(items.size()); }

    DumpfluxWellData get(int i) const override
    {
        const Well& well = items.at(static_cast<std::size_t>(i));
        flow = DumpfluxFlowData(well.oil, well.oil + 1.0, well.oil + 2.0, well.oil + 3.0, well.oil + 4.0);
        components.items = well.components.value_or(std::vector<DumpfluxWellComponentData>());
        return {well.name, &flow, well.components ? &components : nullptr};
    }

    std::vector<Well> items;
    mutable DumpfluxFlowData flow{0.0, 0.0, 0.0, 0.0, 0.0};
    mutable Components components;
};

DumpfluxHeaderData headerOf(Sim::Enum simulator, int components, const std::string& restart = "BASE")
{
    return {DumpfluxBoundaryType::PRESSURE, simulator, restart, 7, 2026, components, 12, Sim::MA10};
}

DumpfluxTimeSpec range(double start, double end)
{
    return {start, end, 3, 200.0, 80.0, 0.5};
}

const Properties oneProperty{{"FLUXOIL", {1.5, -2.5}}};
const Wells noWells{};

class DumpfluxWriterTest : public ::testing::Test
{
protected:
    std::string path(const std::string& name = "CASE.FLUX") const { return dir.file(name); }

    void open(const DumpfluxHeaderData& header, bool formatted = false)
    {
        writer.open(dir.path(), "CASE", header, grid, connections, formatted);
    }

    void openBlackOil(bool formatted = false) { open(headerOf(Sim::MA10, -1), formatted); }

    void write(const DumpfluxTimeSpec& time, const Properties& properties, const Wells& wells = noWells)
    {
        writer.write(time, properties, wells);
    }

    std::string writeRefusal(const DumpfluxTimeSpec& time, const Properties& properties, const Wells& wells = noWells)
    {
        return refusal([&] { write(time, properties, wells); });
    }

    TempDir dir;
    GridSpec grid{4, 3, 2, UnitSystemType::FIELD, GridSpec::Radial};
    Connections connections;
    DumpfluxWriter writer;
};

void addTimes(KeywordFileBuilder& file, double start, double end)
{
    file.keyword("ITIME", {3, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    file.keyword("DTIME", {start, end, 200.0, 80.0, 0.5, 0.0, 0.0, 0.0, 0.0, 0.0});
}

} // namespace

TEST_F(DumpfluxWriterTest, CompositionalFile)
{
    std::vector<int> head(250, -2345);
    head[0] = 12;
    head[1] = 2;
    head[2] = 2;
    head[8] = 4;
    head[9] = 3;
    head[10] = 2;
    head[94] = 300;
    KeywordFileBuilder expected;
    expected.keyword("FLUXTYPE", {"MB30", "PRESSURE", "MA10"}).keyword("RESTART", {"A_LONG_R", "UN"});
    expected.keyword("RESTNUMB", {7}).keyword("INTEHEAD", head).logicals("LOGIHEAD", {0, 0, 0, 0, 1});
    expected.keyword("DOUBHEAD", {1e21}).keyword("INDXFLUX", {1, 3, 2, 4, 1, 2, 1, 2, 2, 1, 1, 0});
    addTimes(expected, 0.0, 10.0);
    expected.keyword("FLUXOIL", {1.5, -2.5}).keyword("PRES", {3.0, 4.0}).keyword("WELLNAME", {"PRODUCER", "I"});
    expected.keyword("WELLFLOW", {10.0, 11.0, 12.0, 13.0, 14.0, 20.0, 21.0, 22.0, 23.0, 24.0});
    expected.keyword("WELLCOMP", {1.0, 4.0, 2.0, 5.0, 3.0, 6.0, 7.0, 10.0, 8.0, 11.0, 9.0, 12.0});
    addTimes(expected, 10.0, 20.0);
    expected.keyword("PRES", {5.0, 6.0}).keyword("FLUXOIL", {7.0, 8.0});

    open(headerOf(Sim::MB30, 2, "A_LONG_RUN"));
    write(range(0, 10), {{"FLUXOIL", {1.5, -2.5}}, {"PRES", {3.0, 4.0}}},
          {{"PRODUCER", 10.0, {{{1, 2, 3}, {4, 5, 6}}}}, {"I", 20.0, {{{7, 8, 9}, {10, 11, 12}}}}});
    write(range(10, 20), {{"PRES", {5.0, 6.0}}, {"FLUXOIL", {7.0, 8.0}}});
    EXPECT_EQ(readBytes(path()), expected.bytes()) << "others see whole blocks before the file is closed";
    writer.close();
    EXPECT_EQ(readBytes(path()), expected.bytes());
}

TEST_F(DumpfluxWriterTest, BlackOilFileHasNoComponents)
{
    std::vector<int> head(210, -2345);
    head[1] = 2026;
    head[2] = 4;
    head[8] = head[9] = head[10] = 1;
    head[209] = 1;
    KeywordFileBuilder expected;
    expected.keyword("FLUXTYPE", {"MA10", "FLUX", ""}).keyword("RESTART", {""}).keyword("RESTNUMB", {7});
    expected.keyword("INTEHEAD", head).logicals("LOGIHEAD", {0, 0, 0, 0, 0}).keyword("DOUBHEAD", {1e21});
    expected.keyword("INDXFLUX", {1, 3, 2, 4, 1, 2, 1, 2, 2, 1, 1, 0});
    addTimes(expected, 0.0, 10.0);
    expected.keyword("FLUXOIL", {1.5, -2.5}).keyword("WELLNAME", {"P"});
    expected.keyword("WELLFLOW", {1.0, 2.0, 3.0, 4.0, 5.0});

    grid = GridSpec(1, 1, 1, UnitSystemType::PVT_M, static_cast<GridSpec::GridType>(0));
    open({DumpfluxBoundaryType::FLUX, Sim::MA10, "", 7, 2026, 3, -1, Sim::Unknown});
    write(range(0, 10), oneProperty, {{"P", 1.0, {{{1, 2, 3}}}}});
    EXPECT_EQ(readBytes(path()), expected.bytes());
}

TEST(DumpfluxValues, RefuseWhatFilesCannotHold)
{
    const auto header = [](int boundary, int simulator, int components, int wells) {
        DumpfluxHeaderData(static_cast<DumpfluxBoundaryType::Enum>(boundary), static_cast<Sim::Enum>(simulator), "", 0,
                           0, components, wells, Sim::MA10);
    };
    const double nan = std::nan("");
    const DumpfluxFlowData flow(0.0, 0.0, 0.0, 0.0, 0.0);
    const std::string badName = "A name for the well must be specified and must be no more than 8 characters long";

    const struct
    {
        std::function<void()> make;
        std::string text;
    } rows[] = {
        {[&] { header(0, 2, 0, -1); }, "The boundary type is UNKNOWN, must be either FLUX or PRESSURE"},
        {[&] { header(1, 2, 0, -1); }, "The Simulator type is not either MA10 or MB30"},
        {[&] { header(1, -1, -1, 1); }, "The Simulator type is not either MA10 or MB30"},
        {[&] { header(1, 1, 0, -1); },
         "The number of components is zero. Set to -1 for black oil or a non-negative integer for a compositional "
         "model"},
        {[&] { header(2, 1, -1, -1); },
         "The maximum number of well is less than zero. A non-negative integer is required"},
        {[&] { header(2, 0, -1, -1); }, "none"},
        {[&] { range(-1, -2); }, "The end time can not be less than the start time"},
        {[&] { range(0, nan); }, "The end time can not be less than the start time"},
        {[&] { range(nan, 0); }, "The end time can not be less than the start time"},
        {[&] { range(-1, 2); }, "The start and end times must be non-negative"},
        {[&] { range(2, 2); }, "none"},
        {[&] { DumpfluxWellData("", nullptr, nullptr); }, "Well flow data must be supplied"},
        {[&] { DumpfluxWellData("", &flow, nullptr); }, badName},
        {[&] { DumpfluxWellData("123456789", &flow, nullptr); }, badName},
        {[&] { DumpfluxWellData("12345678", &flow, nullptr); }, "none"},
    };

    for (const auto& row : rows)
        EXPECT_EQ(refusal(row.make), row.text);
}

TEST_F(DumpfluxWriterTest, OpenRefusesAndLeavesNoFile)
{
    const auto openRefusal = [&](const std::string& directory, const std::string& root = "CASE") {
        return refusal([&] { writer.open(directory, root, headerOf(Sim::MA10, -1), grid, connections, false); });
    };
    const std::string noHeader = "Unable to write time-invariant header information";
    writeBytes(path("plain"), "");
    EXPECT_EQ(openRefusal(path("plain")), "Path points to an existing item that is not a directory: " + path("plain"));
    EXPECT_EQ(openRefusal(path("none")), "Directory " + path("none") + " is not found.");
    EXPECT_EQ(openRefusal(std::string("a\0b", 3)), "Invalid directory path: a");
    EXPECT_EQ(openRefusal(dir.path(), "none/CASE"), noHeader);

    for (const int units : {5, -1}) {
        grid = GridSpec(1, 1, 1, static_cast<UnitSystemType::Enum>(units), GridSpec::Radial);
        EXPECT_EQ(openRefusal(dir.path()), "Invalid grid units: " + std::to_string(units));
    }
    const std::vector<DumpfluxConnection> some = std::exchange(connections.items, {});
    EXPECT_EQ(openRefusal(dir.path()), "No connections to write");
    connections.items = some;
    connections.onGet = [] { throw std::out_of_range("connection"); };
    EXPECT_EQ(openRefusal(dir.path()), "Invalid grid units: -1");
    grid = GridSpec(1, 1, 1, UnitSystemType::LAB, GridSpec::Radial);
    EXPECT_EQ(openRefusal(dir.path()), noHeader);
    connections.onGet = [] { throw std::invalid_argument("connection"); };
    connections.claimedSize = INT_MAX; // no memory is taken for what isn't there
    EXPECT_EQ(openRefusal(dir.path()), "connection");
    connections.claimedSize.reset();
    connections.onGet = nullptr;
    {
        const FullDisk disk(100);
        EXPECT_EQ(openRefusal(dir.path()), noHeader);
    }
    connections.onGet = [&] { writeBytes(path(), "somebody else's"); }; // behind the first look
    EXPECT_EQ(openRefusal(dir.path()), "DUMPFLUX file " + path() + " already exists.");
    EXPECT_EQ(readBytes(path()), "somebody else's");
    EXPECT_EQ(writeRefusal(range(0, 1), oneProperty), "No dumpflux file is open");
    std::filesystem::remove(path());
    std::filesystem::remove(path("plain"));
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

TEST_F(DumpfluxWriterTest, ExistingFilesStay)
{
    openBlackOil();
    write(range(0, 10), oneProperty);
    const std::string bytes = readBytes(path());
    EXPECT_EQ(refusal([&] { openBlackOil(); }), "DUMPFLUX file " + path() + " already exists.");
    EXPECT_EQ(writeRefusal(range(10, 20), oneProperty), "No dumpflux file is open"); // open closed it
    EXPECT_EQ(readBytes(path()), bytes);
    openBlackOil(true); // the other form is another file, to which nothing of the first one applies
    write(range(0, 10), {{"OTHER", {1.0}}});
    writer.close();
    writer.close();
    EXPECT_EQ(writeRefusal(range(10, 20), oneProperty), "No dumpflux file is open");
}

TEST_F(DumpfluxWriterTest, RefusedPropertiesLeaveTheFile)
{
    const std::string mustMatch =
        "The set of properties written out at each timestep must match exactly that of previous timesteps.";
    const std::string badName = "Properties must have a non-zero length name";
    openBlackOil();
    const std::string empty = readBytes(path());
    EXPECT_EQ(writeRefusal(range(0, 10), {}), "No properties to write");
    EXPECT_EQ(writeRefusal(range(0, 10), {{"A", {1, 2}}, {"A  ", {1, 2}}}), mustMatch);
    EXPECT_EQ(writeRefusal(range(0, 10), {{"A", {}}, {"B", {1, 2}}}), "Property array A has no values");
    EXPECT_EQ(writeRefusal(range(0, 10), {{"  ", {1, 2}}}), badName); // the length is known from here on
    EXPECT_EQ(writeRefusal(range(0, 10), {{"", {1, 2, 3}}}), "All property arrays must be the same length");
    EXPECT_EQ(writeRefusal(range(0, 10), {{"", {1, 2}}}), badName);
    EXPECT_EQ(writeRefusal(range(0, 10), {{"123456789", {1, 2}}, {"B", {}}}),
              "Invalid keyword name: 123456789.  Keyword names longer than 8 characters are not supported.");
    for (const char* name : {"FLUXTYPE", "INDXFLUX", "ITIME", "DTIME ", "WELLCOMP"})
        EXPECT_EQ(writeRefusal(range(0, 10), {{name, {1, 2}}}), std::string("Invalid keyword name: ") + name);
    EXPECT_EQ(readBytes(path()), empty);

    write(range(0, 10), {{"A", {1, 2}}, {"B", {1, 2}}});
    const std::string bytes = readBytes(path());
    EXPECT_EQ(writeRefusal(range(10, 20), {{"A", {1, 2}}}), mustMatch);
    EXPECT_EQ(writeRefusal(range(10, 20), {{"B", {}}, {"C", {}}}),
              mustMatch + " Property C not written out previously.");
    EXPECT_EQ(writeRefusal(range(10, 20), {{"B", {1, 2}}, {"B", {1, 2}}}), mustMatch);
    EXPECT_EQ(writeRefusal(range(10, 20), {{"B", {1, 2}}, {"A", {1}}}), "All property arrays must be the same length");
    EXPECT_EQ(readBytes(path()), bytes);
}

TEST_F(DumpfluxWriterTest, RefusedWellsLeaveTheFile)
{
    open(headerOf(Sim::MB30, 2));
    const std::string empty = readBytes(path());
    const std::vector<DumpfluxWellComponentData> one{{1, 2, 3}};
    const std::vector<DumpfluxWellComponentData> two{{1, 2, 3}, {4, 5, 6}};
    const DumpfluxTimeSpec time = range(0, 10);
    EXPECT_EQ(writeRefusal(time, oneProperty, {{"P", 1.0}, {"Q"}, {"P "}}), "Can not have repeated data for well P ");
    EXPECT_EQ(writeRefusal(time, oneProperty, {{"P", 1.0, two}, {"Q"}}),
              "For a compositional simulation the well component data must be specified for well Q");
    EXPECT_EQ(writeRefusal(time, oneProperty, {{"P", 1.0, one}, {"Q"}}),
              "For a compositional simulation all the components must have component data specified for well P");
    EXPECT_EQ(readBytes(path()), empty);
    EXPECT_EQ(writeRefusal(time, oneProperty, {{"P", 1.0, two}}), "none");
}

TEST_F(DumpfluxWriterTest, TimeRanges)
{
    const std::string overlap = "The TimeSpec ranges can not overlap previous entries to the dumpflux file. This entry "
                                "has not been written.";
    const std::string twice = "The same time range can not be specified twice in the same dumpflux file. This entry "
                              "has not been written.";
    const std::string around = "A time range can not completely overlap a previously added time range. This entry has "
                               "not been written.";
    const double infinity = std::numeric_limits<double>::infinity();

    const struct
    {
        double start, end;
        std::string text;
    } rows[] = {
        {100, 110, "none"},
        {110, 120, "none"},
        {0, 10, "none"}, // back in time
        {105, 130, overlap},
        {90, 105, overlap},
        {102, 103, overlap},
        {100, 110, twice},
        {100.0005, 110.0005, overlap}, // within the tolerance, but inside the range
        {99.9995, 120, around},
        {99.9995, 110, twice},
        {0, 10 + 5e-5, twice},
        {0, 10 + 5e-4, "none"}, // the same start and a later end
        {1e-6, 20, overlap},
        {90, 150, around},
        {100, 115, overlap},
        {110, 110, "none"}, // no length, on a bound
        {95, 110, "none"},  // the same end and an earlier start
        {200, infinity, "none"},
        {200, infinity, twice},
    };

    openBlackOil();
    for (const auto& row : rows) {
        const std::string bytes = readBytes(path());
        EXPECT_EQ(writeRefusal(range(row.start, row.end), oneProperty), row.text) << row.start << " to " << row.end;
        EXPECT_EQ(readBytes(path()) == bytes, row.text != "none") << row.start << " to " << row.end;
    }
}

// Not local to their test: clang gives the lambdas of a local class one and the same name.
struct Calling final : IDumpfluxPropertyArray
{
    int size() const override { return onSize(); }

    double getValue(int) const override
    {
        onGet();
        return 1.0;
    }

    std::string getName() const override { return name; }

    std::function<int()> onSize = [] { return 2; };
    std::function<void()> onGet = [] { throw std::range_error("value"); };
    std::string name = "FLUXOIL";
};

struct One final : IDumpfluxPropertiesArray
{
    int size() const override { return 1; }

    const IDumpfluxPropertyArray& get(int) const override { return property; }

    Calling property;
};

TEST_F(DumpfluxWriterTest, ArraysThatMisbehaveLeaveTheFile)
{
    One one;
    const auto writeOne = [&](double start) {
        return refusal([&] { writer.write(range(start, start + 10), one, noWells); });
    };
    openBlackOil();
    const std::string empty = readBytes(path());
    EXPECT_EQ(writeOne(0), "other: value");
    int asked = 0;
    one.property.onSize = [&] { return ++asked < 3 ? 2 : 1; }; // fewer than when it was checked
    EXPECT_EQ(writeOne(0), "All property arrays must be the same length");
    EXPECT_EQ(readBytes(path()), empty);
    EXPECT_EQ(writeRefusal(range(0, 10), {{"OTHER", {1, 2}}}), "none"); // neither range nor name was kept
    one.property = {};
    one.property.name = "OTHER";
    one.property.onGet = [&] { writer.close(); };
    EXPECT_EQ(writeOne(10), "No dumpflux file is open");

    openBlackOil(true);
    one.property = {};
    one.property.onSize = [] { return INT_MAX; }; // no memory is taken for what isn't there
    EXPECT_EQ(writeOne(0), "other: value");
}

TEST_F(DumpfluxWriterTest, BlockThatDoesNotFitIsCutOutAgain)
{
    for (const bool formatted : {false, true}) {
        openBlackOil(formatted);
        write(range(0, 10), oneProperty);
        const std::string file = path(formatted ? "CASE.FFLUX" : "CASE.FLUX");
        const std::string bytes = readBytes(file);
        {
            const FullDisk disk(bytes.size() + 100);
            EXPECT_EQ(writeRefusal(range(10, 20), oneProperty).compare(0, 7, "other: "), 0);
            EXPECT_EQ(writeRefusal(range(10, 20), oneProperty).compare(0, 7, "other: "), 0);
        }
        EXPECT_EQ(readBytes(file), bytes);
        EXPECT_EQ(writeRefusal(range(10, 20), oneProperty), "none");
    }
}

TEST_F(DumpfluxWriterTest, ReaderFindsWhatWasWritten)
{
    const Wells wells{{"P", 10.0, {{{1, 2, 3}, {4, 5, 6}}}}};
    for (const bool formatted : {false, true}) {
        open(headerOf(Sim::MB30, 2, "A_LONG_RUN"), formatted);
        write(range(0, 10), {{"PRES", {1.0, 2.0, 3.0, 4.0}}}, wells);
        write(range(10, 20), {{"PRES", {5.0, 6.0, 7.0, 8.0}}});

        DumpfluxReader reader;
        reader.read(path(formatted ? "CASE.FFLUX" : "CASE.FLUX"));
        EXPECT_EQ(reader.simulatorType(), Sim::MB30);
        EXPECT_EQ(reader.boundaryType(), DumpfluxBoundaryType::PRESSURE);
        EXPECT_EQ(reader.unitSystem(), UnitSystemType::FIELD);
        EXPECT_EQ(reader.restartName(), "A_LONG_RUN");
        EXPECT_EQ(reader.restartNumber(), 7);
        EXPECT_EQ(reader.numComponents(), 2);
        EXPECT_EQ(reader.maximumNumberWells(), 12);
        EXPECT_EQ(reader.numCells(), 24);
        EXPECT_TRUE(reader.radialGeometry());
        EXPECT_EQ(reader.endTimes(), (std::vector<double>{10.0, 20.0}));
        EXPECT_EQ(reader.reportNumbers(), (std::vector<int>{3, 3}));
        EXPECT_EQ(reader.averageReservoirRs(), (std::vector<double>{80.0, 80.0}));

        std::vector<double> values;
        std::vector<int> outer;
        std::vector<int> inner;
        EXPECT_TRUE(reader.getArray("PRES", 15.0, values, outer, inner, 1));
        EXPECT_EQ(values, (std::vector<double>{7.0, 6.0}));
        EXPECT_EQ(outer, (std::vector<int>{2, 3}));
        EXPECT_EQ(inner, (std::vector<int>{1, 4}));
        EXPECT_TRUE(reader.getWellArray("P", "WELLFLOW", 5.0, values));
        EXPECT_EQ(values, (std::vector<double>{10.0, 11.0, 12.0, 13.0, 14.0}));
        EXPECT_TRUE(reader.getWellArray("P", "WELLCOMP", 5.0, values));
        EXPECT_EQ(values, (std::vector<double>{1.0, 4.0, 2.0, 5.0, 3.0, 6.0}));
    }
}
