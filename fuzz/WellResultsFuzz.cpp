// Well results of any content. The first byte chooses family and form of the file. A reader that scans it is asked for
// everything; then another one, which finds the cache that the first one wrote, has to give the same answers.
#include "support/WellValues.h"

#include <mrlio/GRFTReaderEnvironment.h>
#include <mrlio/HMDReaderEnvironment.h>
#include <mrlio/RFTReaderEnvironment.h>

namespace {

using namespace MrlIOFuzz;
using namespace Kvt::Mrl::MrlIO;

constexpr std::size_t mostBytes = 16384;

/// The cache knows no second domain below -1.
bool survivesCache(const GRFTReader& reader)
{
    bool survives = true;
    succeeds([&] {
        survives =
            std::ranges::none_of(reader.parameters(), [](const auto& parameter) { return parameter.domain2 < -1; });
    });
    return survives;
}

template <class Reader>
bool survivesCache(const Reader&)
{
    return true;
}

template <class Reader, class Environment>
void compare(const std::string& file)
{
    const Service::FileName name(file);
    const auto flush = [&name] {
        Environment::flushContentIndexCache(Service::Directory(name.GetDirectory()), name.GetRootName());
    };
    // Two inputs of one length within a second would look the same to a cache.
    flush();
    Reader scanning;
    const Answers scanned = answersOf(scanning, file);
    Reader cached;
    const Answers again = answersOf(cached, file);
    require(!survivesCache(scanning) || again == scanned, "the cache changes no answer");
    flush();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    if (size < 1 || size > mostBytes)
        return 0;
    const bool isFormatted = (data[0] & 1) != 0;
    const std::string_view bytes = textOf(data + 1, size - 1);
    const auto write = [&](const char* unformatted, const char* formatted) {
        return scratch.write(isFormatted ? formatted : unformatted, bytes);
    };
    switch (data[0] >> 1 & 3) {
    case 0:
        compare<GRFTReader, GRFTReaderEnvironment>(write("CASE.GRFT", "CASE.FGRFT"));
        break;
    case 1:
        compare<HMDReader, HMDReaderEnvironment>(write("CASE.HMD", "CASE.FHMD"));
        break;
    default:
        compare<RFTReader, RFTReaderEnvironment>(write("CASE.RFT", "CASE.FRFT"));
    }
    return 0;
}
