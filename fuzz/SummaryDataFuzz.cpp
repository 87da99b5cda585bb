// Summary data of any content under a fixed specification of five vectors. The first byte chooses form, use of the
// cache, and one or two files, the next two say how much of the rest is the first file. Where the loader that reads
// whole records succeeds, the one that reads slices has to give the same, and so has a reader that takes its index from
// the cache of another.
#include "support/SeparateValues.h"
#include "support/SummaryValues.h"

#include <algorithm>

namespace {

using namespace MrlIOFuzz;

constexpr std::size_t mostBytes = 65536;
constexpr std::size_t choiceBytes = 3;

struct Choices
{
    explicit Choices(const std::uint8_t* data)
        : isFormatted((data[0] & 1) != 0),
          cache(static_cast<ISummaryReader::ContentCacheBehaviour>(data[0] >> 1 & 3)),
          hasTwoFiles((data[0] & 8) != 0),
          firstLength(static_cast<std::size_t>(data[1] << 8 | data[2]))
    {}

    bool isFormatted;
    ISummaryReader::ContentCacheBehaviour cache;
    bool hasTwoFiles;
    std::size_t firstLength;
};

std::vector<std::string> writeData(const Scratch& scratch, const Choices& choices, std::string_view bytes)
{
    if (!choices.hasTwoFiles)
        return {scratch.write(choices.isFormatted ? "CASE.FUNSMRY" : "CASE.UNSMRY", bytes)};
    const std::size_t length = std::min(choices.firstLength, bytes.size());
    return {scratch.write(choices.isFormatted ? "CASE.A0001" : "CASE.S0001", bytes.substr(0, length)),
            scratch.write(choices.isFormatted ? "CASE.A0002" : "CASE.S0002", bytes.substr(length))};
}

void growFromFirstFile(const std::shared_ptr<SummarySpecData>& spec, const std::vector<std::string>& files,
                       const std::string& directory)
{
    succeeds([&] {
        const auto reader =
            SimpleSummaryReader::create(spec, {files.front()}, directory, "CASE", ISummaryReader::NoCache);
        reader->getValues(reader->timeVectorID());
        reader->readNewData(files);
        for (const auto& id : reader->allVectorIDs())
            reader->getValues(id);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    static const auto spec = std::make_shared<SummarySpecData>(
        scratch.write("CASE.SMSPEC", MrlIOTest::smallSpec(MrlIOTest::Form::Binary).bytes()));
    if (size < choiceBytes || size > mostBytes)
        return 0;
    const Choices choices(data);
    const std::string_view bytes = textOf(data + choiceBytes, size - choiceBytes);
    const bool comparesLoaders = !choices.isFormatted || areValuesSeparate(bytes);
    const auto files = writeData(scratch, choices, bytes);
    // Two inputs of one length within a second would look the same to a cache.
    Kvt::Mrl::MrlIO::SummaryReaderEnvironment::flushContentIndexCache(scratch.directory(), "CASE");
    const SummaryValues slices = summaryValues(spec, files, scratch.directory(), choices.cache);
    const SummaryValues wholes = summaryValues(spec, files, scratch.directory(), choices.cache,
                                               std::make_unique<Kvt::Mrl::MrlIO::SummaryDataLoaderSimpleFactory>());
    require(slices.size() == wholes.size(), "files are accepted or refused once for all");
    for (std::size_t i = 0; comparesLoaders && i < wholes.size(); ++i)
        require(!wholes[i] || (slices[i] && isSame(*slices[i], *wholes[i])), "both loaders give the same values");
    growFromFirstFile(spec, files, scratch.directory());
    return 0;
}
