// Any bytes as the shortcut beside a case: what a shell link says, and what the case makes of it. Only the bytes given
// are looked at, and a case with a shortcut never throws.
#include "messages/ShellLink.h"
#include "support/Fuzzing.h"

#include <mrlio/DSPFileUtil.h>

namespace {

using namespace Kvt::Mrl::MrlIO;
using MrlIOFuzz::require;

constexpr std::size_t mostBytes = 1 << 16;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MrlIOFuzz::Scratch scratch;
    if (size > mostBytes)
        return 0;
    const std::string_view bytes = MrlIOFuzz::textOf(data, size);
    const auto link = parseShellLink(bytes);
    require(!link || link->relativePath.find('\0') == std::string::npos, "a path ends at a zero");
    require(!link || link->localPath.find('\0') == std::string::npos, "a path ends at a zero");

    const std::string shortcut = scratch.write("CASE_DSP.INC.lnk", bytes);
    DSPFileUtil util(scratch.path("CASE"));
    const std::string path = util.getDSPFilename();
    require(util.isDSPCase() == !path.empty(), "a DSP case has a name");
    require(link || path == shortcut, "a damaged shortcut stays what it is");
    require(path.empty() || std::filesystem::exists(path), "what is found is there");
    return 0;
}
