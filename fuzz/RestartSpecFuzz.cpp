// An index file of any content beside a sound restart file and a sound init file, for both of them: whatever it claims,
// nothing may come out but arrays of the files, or the library's exceptions.
#include "support/KeywordFileBuilder.h"
#include "support/RestartValues.h"

namespace {

using namespace MrlIOFuzz;
using MrlIOTest::KeywordFileBuilder;

constexpr std::size_t mostBytes = 65536;

/// Of a grid of one layer.
std::vector<int> intehead(int nx, int ny, int activeCells)
{
    std::vector<int> words(411, -2345);
    words[2] = 1;
    words[8] = nx;
    words[9] = ny;
    words[10] = 1;
    words[11] = activeCells;
    words[14] = 7;
    words[64] = words[65] = 1;
    words[66] = 2020;
    return words;
}

std::string restartBytes()
{
    return KeywordFileBuilder()
        .keyword("SEQNUM", {1})
        .keyword("INTEHEAD", intehead(3, 2, 4))
        .logicals("LOGIHEAD", std::vector<int>(15, 0))
        .keyword("DOUBHEAD", std::vector<double>(162, 1.0))
        .keyword("PRESSURE", {1.0F, 2.0F, 3.0F, 4.0F})
        .keyword("SWAT", {0.1F, 0.2F, 0.3F, 0.4F})
        .keyword("LGR", {"L1"})
        .keyword("INTEHEAD", intehead(2, 1, 2))
        .keyword("SWAT", {0.5F, 0.6F})
        .keyword("ENDLGR", std::vector<int>())
        .bytes();
}

std::string initBytes()
{
    return KeywordFileBuilder()
        .keyword("INTEHEAD", intehead(3, 2, 4))
        .logicals("LOGIHEAD", std::vector<int>(15, 0))
        .keyword("PORV", {1.0F, 0.0F, 1.0F, 1.0F, 0.0F, 1.0F})
        .keyword("CORSNUM", {0, 1, 1, 0, 2, 2})
        .keyword("LGR", {"L1"})
        .keyword("INTEHEAD", intehead(2, 1, 2))
        .keyword("PORV", {1.0F, 1.0F})
        .keyword("LGRJOIN", {"L1", "L2"})
        .keyword("TRANLL", {1.5F})
        .keyword("ENDLGR", std::vector<int>())
        .bytes();
}

/// In place of pore volumes.
class Activities : public Kvt::Mrl::MrlIO::ICellActivitiesSource
{
public:
    bool getCellActivities(std::vector<bool>& out, const std::string& lgr, bool fracture) const override
    {
        out = lgr.empty() ? std::vector<bool>{true, false, true, true, false, true} : std::vector<bool>{true, true};
        return !fracture;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    static const std::string restart = restartBytes();
    static const std::string init = initBytes();
    static const std::string restartFile = scratch.write("CASE.UNRST", restart);
    static const std::string initFile = scratch.write("CASE.INIT", init);
    if (size > mostBytes)
        return 0;
    const bool isFormatted = size > 0 && data[0] != 0;
    const std::string specFile = scratch.write(isFormatted ? "CASE.FRSSPEC" : "CASE.RSSPEC", textOf(data, size));
    succeeds([&] {
        const auto soundInit = InitReader::create();
        soundInit->read(initFile, false, "", "");
        const auto reader = RestartReader::create(2);
        reader->read({restartFile}, false, specFile, soundInit, nullptr);
        RestartCheck(restart.size(), false).run(*reader);
    });
    succeeds([&] {
        const Activities activities;
        const auto reader = RestartReader::create();
        reader->read({restartFile}, false, specFile, nullptr, &activities);
        RestartCheck(restart.size(), false).run(*reader);
    });
    succeeds([&] {
        const auto reader = InitReader::create();
        reader->read(initFile, false, specFile, "");
        RestartCheck(init.size(), false).run(*reader);
    });
    return 0;
}
