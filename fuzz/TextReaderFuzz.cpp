// The formatted reader over any text: walks the headers, reads each array whole, in slices and once more by its header.
// A second walk has to agree with the first, and every slice with the whole array if white space parts all values.
#include "support/KeywordFileCheck.h"
#include "support/SeparateValues.h"

namespace {

// Slices of text are found by passing the values before them, so that the work grows faster than the input.
constexpr std::size_t mostBytes = 65536;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MrlIOFuzz::Scratch scratch;
    if (size > mostBytes)
        return 0;
    const std::string_view text = MrlIOFuzz::textOf(data, size);
    const bool comparesAllSlices = MrlIOFuzz::areValuesSeparate(text);
    MrlIOFuzz::KeywordFileCheck(scratch.write("CASE.FINIT", text), true, comparesAllSlices).run();
    return 0;
}
