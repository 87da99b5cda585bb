// Any bytes as a boundary flux dump. The first byte chooses the form. Every question is asked, for times in all time
// ranges and beyond them, and what a region gets is compared with the values of all connections.
#include "support/Answers.h"

#include <mrlio/DumpfluxReader.h>

#include <algorithm>
#include <limits>

namespace {

using namespace MrlIOFuzz;
using namespace Kvt::Mrl::MrlIO;

constexpr std::size_t mostBytes = 32768;
constexpr std::ptrdiff_t mostArrays = 4;
constexpr std::ptrdiff_t mostRegions = 4;
constexpr std::ptrdiff_t mostRanges = 3;

struct Connections
{
    explicit Connections(const DumpfluxReader& reader)
    {
        std::vector<int> direction;
        std::vector<bool> required;
        const bool any = reader.getRawIndxFluxData(first, second, direction, firstRegion, secondRegion, required);
        require(any == !first.empty() && std::ssize(first) == reader.numConnections(), "the connections are counted");
        for (const std::size_t size :
             {second.size(), direction.size(), firstRegion.size(), secondRegion.size(), required.size()})
            require(size == first.size(), "each connection has everything");
    }

    std::vector<int> first, second, firstRegion, secondRegion;
};

bool isSame(const std::vector<double>& a, const std::vector<double>& b)
{
    return std::ranges::equal(a, b, [](double x, double y) {
        return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(y) || (x != x && y != y);
    });
}

class DumpfluxCheck
{
public:
    explicit DumpfluxCheck(const DumpfluxReader& reader) : reader_(reader) {}

    void run() const
    {
        askHeader();
        for (const double time : times()) {
            for (const std::string& array : arrays()) {
                askWells(array, time);
                succeeds([&] { checkArray(array, time); });
            }
        }
        askCells();
    }

private:
    void askHeader() const
    {
        reader_.file(), reader_.formatted(), reader_.simulatorType(), reader_.boundaryType(), reader_.unitSystem();
        reader_.simulatorVersion(), reader_.numComponents(), reader_.maximumNumberWells(), reader_.restartName();
        reader_.restartNumber(), reader_.radialGeometry();
        succeeds([&] { reader_.numCells(); });
        const std::size_t ranges = reader_.startTimes().size();
        for (const auto list : {&DumpfluxReader::endTimes, &DumpfluxReader::averageReservoirPressure,
                                &DumpfluxReader::averageReservoirRs, &DumpfluxReader::averageReservoirRv})
            require((reader_.*list)().size() == ranges, "each time range has everything");
        require(reader_.reportNumbers().size() == ranges, "each time range has a report");
    }

    std::vector<double> times() const
    {
        std::vector<double> times{-1.0, 1e300, std::numeric_limits<double>::quiet_NaN()};
        for (const auto list : {&DumpfluxReader::startTimes, &DumpfluxReader::endTimes})
            for (const double time : someOf((reader_.*list)(), mostRanges))
                times.insert(times.end(), {time, time + 0.5});
        return times;
    }

    std::vector<std::string> arrays() const
    {
        std::vector<std::string> arrays = someOf(reader_.dataArrayNames(), mostArrays);
        for (const char* more : {"WELLFLOW", "WELLCOMP", "no such"})
            arrays.emplace_back(more);
        return arrays;
    }

    void askWells(const std::string& array, double time) const
    {
        auto wells = someOf(reader_.wellNames(), 2);
        wells.emplace_back("no well");
        for (const std::string& well : wells)
            succeeds([&] {
                std::vector<double> values;
                const bool isThere = reader_.getWellArray(well, array, time, values);
                require(isThere == !values.empty(), "an array has values");
                require(array != "WELLFLOW" || values.size() <= 5, "a well has five rates");
            });
    }

    void checkArray(const std::string& array, double time) const
    {
        std::vector<double> all;
        std::vector<int> first, second;
        const bool isThere = reader_.getArray(array, time, all, first, second);
        const Connections connections(reader_);
        require(first == connections.first && second == connections.second, "the cells are those of the connections");
        require(isThere == (!all.empty() && !first.empty()), "true stands for values");
        auto regions = someOf(reader_.regions(), mostRegions);
        regions.push_back(-77);
        for (const int region : regions)
            checkRegion(array, time, all, connections, region);
    }

    void checkRegion(const std::string& array, double time, const std::vector<double>& all,
                     const Connections& connections, int region) const
    {
        std::vector<double> values, expected;
        std::vector<int> outer, inner, expectedOuter, expectedInner;
        const std::size_t count = connections.first.size();
        const bool isFlux = reader_.boundaryType() == DumpfluxBoundaryType::FLUX && all.size() == count;
        const bool isPressure = reader_.boundaryType() == DumpfluxBoundaryType::PRESSURE && all.size() == 2 * count;
        const auto take = [&](const auto& regions, const auto& outside, const auto& inside, bool isFirst) {
            for (std::size_t i = 0; i < count; ++i) {
                if (regions[i] != region)
                    continue;
                expectedOuter.push_back(outside[i]);
                expectedInner.push_back(inside[i]);
                if (isFlux)
                    expected.push_back(isFirst ? all[i] : -all[i]);
                if (isPressure)
                    expected.push_back(all[isFirst ? count + i : i]);
            }
        };
        take(connections.firstRegion, connections.second, connections.first, true);
        take(connections.secondRegion, connections.first, connections.second, false);
        const bool isThere = reader_.getArray(array, time, values, outer, inner, region);
        require(outer == expectedOuter && inner == expectedInner, "the cells of a region are those of its connections");
        require(isSame(values, expected), "the values of a region are those of its connections");
        require(isThere == !values.empty(), "true stands for values");
    }

    void askCells() const
    {
        succeeds([&] {
            DumpfluxReader::Cells first, second, outer, inner;
            std::vector<int> direction, firstRegion, secondRegion;
            std::vector<bool> required;
            std::vector<double> values;
            reader_.getRawIndxFluxData(first, second, direction, firstRegion, secondRegion, required);
            require(std::ranges::find(first, nullptr) == first.end(), "each cell is there");
            require(first.size() == second.size() && first.size() == direction.size(), "each connection has two cells");
            for (const int region : someOf(reader_.regions(), mostRegions)) {
                reader_.getArray("FLUX", 0.0, values, outer, inner, region);
                require(!outer.empty() && outer.size() == inner.size(), "a region has connections");
            }
        });
    }

    const DumpfluxReader& reader_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    if (size < 1 || size > mostBytes)
        return 0;
    const std::string file = scratch.write((data[0] & 1) != 0 ? "CASE.FFLUX" : "CASE.FLUX", textOf(data + 1, size - 1));
    DumpfluxReader reader;
    succeeds([&] { reader.read(file); });
    DumpfluxCheck(reader).run(); // of no file if that failed
    return 0;
}
