// The summary specification over any bytes, as formatted text if they don't begin as a binary record does. What was
// accepted has to be consistent in itself: places, runs of places, and what can be asked of each vector.
#include "support/Fuzzing.h"

#include <mrlio/SummarySpecData.h>

namespace {

using Kvt::Mrl::MrlIO::SummarySpecData;
using MrlIOFuzz::require;

constexpr std::size_t mostBytes = 65536;

void checkVectors(const SummarySpecData& spec)
{
    const auto& ids = spec.allVectorIDs();
    const int count = static_cast<int>(ids.size());
    for (int place = 0; place < count; ++place) {
        const auto& id = ids[static_cast<std::size_t>(place)];
        const int found = spec.index(id);
        require(found >= 0 && found <= place, "the first of equal vectors has the place");
        require(ids[static_cast<std::size_t>(found)] == id, "a vector is found by its identity");
        const auto& unit = spec.unit(id);
        const auto& measurement = spec.measurement(id);
        require(unit.size() + measurement.size() <= 2 * mostBytes, "texts come from the file");
        id.validWithType();
    }
    for (const auto& id : ids) {
        for (const auto& [first, last] : spec.indexRange(id.getVectorName()))
            require(0 <= first && first <= last && last < count, "a run of places lies among the vectors");
    }
    require(spec.index(spec.timesVectorID()) < count, "the time's place lies among the vectors");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MrlIOFuzz::Scratch scratch;
    if (size > mostBytes)
        return 0;
    const bool isFormatted = size > 0 && data[0] != 0;
    const std::string file = scratch.write(isFormatted ? "CASE.FSMSPEC" : "CASE.SMSPEC", MrlIOFuzz::textOf(data, size));
    MrlIOFuzz::succeeds([&file] {
        const SummarySpecData spec(file);
        checkVectors(spec);
    });
    return 0;
}
