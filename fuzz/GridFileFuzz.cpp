// A grid file of any content, formatted as text if it doesn't begin as a binary record does, through a dispatcher that
// reads every array and asks each record with accessors.
#include "support/Fuzzing.h"

#include <mrlio/GridFileKeywordDispatcher.h>
#include <mrlio/MorvaneReaderUtils.h>

namespace {

using namespace Kvt::Mrl::MrlIO;
using MrlIOFuzz::require;

constexpr std::size_t mostBytes = 65536;

class Reader : public GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::processKeyword;

    void processKeywordHeader(const KeywordHeader& header) override
    {
        require(!header.name().empty(), "a known keyword has a name");
    }

    void processKeyword(EGridGRIDHEAD& head) override
    {
        require(head.array().size() == 100, "a fixed size is kept");
        used_ += static_cast<unsigned>(head.getGridSize().x) + static_cast<unsigned>(head.getNumDomains());
    }

    void processKeyword(GridLGRILG& local) override
    {
        require(local.array().size() == 11, "a fixed size is kept");
        used_ += static_cast<unsigned>(local.getHostCellMax().x ^ local.getGridSize().y);
    }

    void processKeyword(EGridCOORD& coord) override { readWhole(coord); }

    void processKeyword(EGridHOSTNUM& host) override { readWhole(host); }

    void processKeyword(EGridLGR& name) override { readWhole(name); }

    void processKeyword(GridCOORDS& cell) override
    {
        if (readWhole(cell))
            MrlIOFuzz::succeeds([&] { cell.setActiveCells(1), cell.setHostCellAndCoarsenedGroup(1, 1); });
    }

private:
    template <class Record>
    bool readWhole(Record& record)
    {
        bool isRead = false;
        MrlIOFuzz::succeeds([&] { isRead = readData(record); });
        require(!isRead || std::ssize(record.array()) == record.size(), "an array is read whole");
        require(record.array().size() <= mostBytes, "an array comes out of the file");
        return isRead;
    }

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
    MrlIOFuzz::succeeds([&] {
        const auto reader = MorvaneReaderUtils::createReader(file, isFormatted);
        require(reader != nullptr, "a file that is there can be opened");
        Reader().processFile(reader.get());
    });
    return 0;
}
