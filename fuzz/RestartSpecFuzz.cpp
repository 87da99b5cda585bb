// An index file of any content beside a sound restart file and a sound init file: whatever it claims, nothing may come
// out but arrays of the file, or the library's exceptions.
#include "support/KeywordFileBuilder.h"
#include "support/RestartValues.h"

namespace {

using namespace MrlIOFuzz;
using MrlIOTest::KeywordFileBuilder;

constexpr std::size_t mostBytes = 65536;
constexpr int nx = 3, ny = 2, nz = 1;

std::vector<int> intehead()
{
    std::vector<int> words(411, -2345);
    words[2] = 1;
    words[8] = nx;
    words[9] = ny;
    words[10] = nz;
    words[11] = 4;
    words[14] = 7;
    words[64] = words[65] = 1;
    words[66] = 2020;
    return words;
}

std::string restartBytes()
{
    return KeywordFileBuilder()
        .keyword("SEQNUM", {1})
        .keyword("INTEHEAD", intehead())
        .logicals("LOGIHEAD", std::vector<int>(15, 0))
        .keyword("DOUBHEAD", std::vector<double>(162, 1.0))
        .keyword("PRESSURE", {1.0F, 2.0F, 3.0F, 4.0F})
        .keyword("SWAT", {0.1F, 0.2F, 0.3F, 0.4F})
        .bytes();
}

std::string initBytes()
{
    return KeywordFileBuilder()
        .keyword("INTEHEAD", intehead())
        .logicals("LOGIHEAD", std::vector<int>(15, 0))
        .keyword("PORV", {1.0F, 0.0F, 1.0F, 1.0F, 0.0F, 1.0F})
        .bytes();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    static const std::string dataBytes = restartBytes();
    static const std::string dataFile = scratch.write("CASE.UNRST", dataBytes);
    static const std::string initFile = scratch.write("CASE.INIT", initBytes());
    if (size > mostBytes)
        return 0;
    const bool isFormatted = size > 0 && data[0] != 0;
    const std::string specFile = scratch.write(isFormatted ? "CASE.FRSSPEC" : "CASE.RSSPEC", textOf(data, size));
    succeeds([&] {
        const auto init = InitReader::create();
        init->read(initFile, false, "", "");
        const auto reader = RestartReader::create(2);
        reader->read({dataFile}, false, specFile, init, nullptr);
        RestartCheck(dataBytes.size()).run(*reader);
    });
    return 0;
}
