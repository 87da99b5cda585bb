// The unformatted reader over any bytes: walks the headers, reads each array whole, in slices and once more by its
// header. A second walk has to agree with the first, and every slice with the whole array.
#include "support/KeywordFileCheck.h"

namespace {

constexpr std::size_t mostBytes = 65536;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MrlIOFuzz::Scratch scratch;
    if (size > mostBytes)
        return 0;
    MrlIOFuzz::KeywordFileCheck(scratch.write("CASE.INIT", MrlIOFuzz::textOf(data, size)), false, true).run();
    return 0;
}
