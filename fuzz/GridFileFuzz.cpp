// A grid file of any content, formatted as text if it doesn't begin as a binary record does, through a dispatcher that
// reads every array and asks each record with accessors and setters.
#include "support/Fuzzing.h"

#include <mrlio/GridFileKeywordDispatcher.h>
#include <mrlio/MorvaneReaderUtils.h>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace {

using namespace Kvt::Mrl::MrlIO;
using MrlIOFuzz::require;
using MrlIOFuzz::succeeds;

constexpr std::size_t mostBytes = 65536;

bool isSame(const Index3& left, const Index3& right)
{
    return left.x == right.x && left.y == right.y && left.z == right.z;
}

class Reader : public GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::processKeyword;

    void processKeywordHeader(const KeywordHeader&) override { require(false, "each keyword has its own operation"); }

#define MRLIO_FUZZED_KEYWORD(Record, keyword, valueType, count, form)                                                  \
    void processKeyword(Record& record) override                                                                       \
    {                                                                                                                  \
        require(record.name() == keyword, "a record has its own keyword's name");                                      \
        takeRecord(record, count);                                                                                     \
    }
    MRLIO_GRID_KEYWORDS(MRLIO_FUZZED_KEYWORD)
#undef MRLIO_FUZZED_KEYWORD

    void logPushMessageContext(const std::string&) override
    {
        ++depth_;
    }

    void logPopMessageContext() override
    {
        --depth_;
    }

    void finalize() override
    {
        require(depth_ == 0, "each context is left again");
    }

private:
    /// fixedCount   -1 for records that come without their data
    template <class Record>
    void takeRecord(Record& record, int fixedCount)
    {
        const auto given = record.array();
        require(std::ssize(given) == std::max(fixedCount, 0), "records of a fixed size have their data, others none");
        ask(record); // as it comes
        const bool isRead = succeeds([&] { readData(record); });
        require(!isRead || std::ssize(record.array()) == record.size(), "an array is read whole");
        require(record.array().size() <= mostBytes, "an array comes out of the file");
        if constexpr (!std::is_floating_point_v<typename std::decay_t<decltype(given)>::value_type>)
            require(fixedCount < 0 || record.array() == given, "a second read gives the same");
        ask(record);
    }

    template <class Record>
    void ask(const Record&)
    {}

    void ask(EGridGRIDHEAD& head)
    {
        use(head.getGridSize()), use(head.getHostCellMin()), use(head.getHostCellMax());
        used_ += static_cast<unsigned>(head.getNumReservoirs() ^ head.getNumDomains()) + head.isRadial();
        head.setStrGridHeadData(1, 2, 0, head.getHostCellMax(), head.getHostCellMin());
        require(head.getNumReservoirs() == 1 && head.getNumDomains() == 2 && head.isRadial(), "what was set stays");
    }

    void ask(const GridDIMENS& dimensions)
    {
        use(dimensions.getGridSize());
    }

    void ask(GridLGRILG& local)
    {
        use(local.getHostCellMin()), use(local.getHostCellMax());
        used_ += static_cast<unsigned>(local.getNTheta());
        local.setGridSize(local.getHostCellMin());
        require(isSame(local.getGridSize(), local.getHostCellMin()), "what was set stays");
    }

    void ask(const GridMAPAXES& axes)
    {
        for (const Vertex2F* end : {&axes.xend(), &axes.yend(), &axes.origin()})
            used_ += end->x < end->y;
    }

    void ask(GridCORNERS& corners)
    {
        for (int vertex = 0; vertex < 8; ++vertex)
            corners.setVertices(vertex, 1, 2, 3);
        require(!succeeds([&] { corners.setVertices(8, 1, 2, 3); }), "there is no ninth vertex");
    }

    /// Cells come with any number of items, and at first with none.
    void ask(GridCOORDS& cell)
    {
        const auto items = cell.array();
        if (succeeds([&] { cell.setActiveCells(1), cell.setHostCellAndCoarsenedGroup(2, 3); }))
            require(items.size() <= 4 || cell.array()[4] == 1, "what was set stays");
        else
            require(items.size() < 4, "a cell of four items or more can be asked");
        require(cell.array().size() == items.size(), "setters add no items");
    }

    void use(const Index3& index)
    {
        used_ += static_cast<unsigned>(index.x ^ index.y ^ index.z);
    }

    int depth_ = 0;
    unsigned used_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MrlIOFuzz::Scratch scratch;
    if (size > mostBytes)
        return 0;
    const bool isFormatted = size > 0 && data[0] != 0;
    const std::string file = scratch.write("CASE.EGRID", MrlIOFuzz::textOf(data, size));
    succeeds([&] {
        const auto reader = MorvaneReaderUtils::createReader(file, isFormatted);
        require(reader != nullptr, "a file that is there can be opened");
        Reader().processFile(reader.get());
    });
    return 0;
}
