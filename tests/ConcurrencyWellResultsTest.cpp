#include "support/DumpfluxCase.h"
#include "support/Threads.h"
#include "support/WellFile.h"

#include <mrlio/GRFTReader.h>
#include <mrlio/GRFTReaderEnvironment.h>
#include <mrlio/HMDReader.h>
#include <mrlio/HMDReaderEnvironment.h>
#include <mrlio/MessageWriter.h>
#include <mrlio/RFTReader.h>
#include <mrlio/RFTReaderEnvironment.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace MrlIOTest {
namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr int threadCount = 4;
constexpr int rounds = 30;
constexpr int reports = 12;

/// Files of equal numbers: each value is that of its report.
WellFile wellResults(bool hasGradients)
{
    WellFile file;
    for (int report = 0; report < reports; ++report) {
        file.report(static_cast<float>(report), 1 + report).well("A");
        if (hasGradients)
            file.keyword("NAMES", {"A", "PORO"}).keyword("HMHEADI", {1, 2, 3});
        file.keyword("PRESSURE", {static_cast<float>(report)});
    }
    return file;
}

KeywordFileBuilder matchData()
{
    KeywordFileBuilder file;
    file.keyword("CODESTAT", {"CODED"});
    for (int report = 0; report < reports; ++report) {
        file.keyword("TIMESTEP", {double(report), 1.0}).keyword("NAMES", {"A", "PORO"}).keyword("HMHEADI", {1, 2, 3});
        file.keyword("DERIVS", {static_cast<float>(report)});
    }
    return file;
}

bool readArray(const RFTReader& reader, std::size_t report, std::vector<double>& values)
{
    return reader.RFTArrayNames() == std::vector<std::string>{"PRESSURE"} && reader.wellType("B") == 4 &&
           reader.getArray("PRESSURE", "A", report, values);
}

bool readArray(const GRFTReader& reader, std::size_t report, std::vector<double>& values)
{
    const GRFTParameter parameter("PORO", 2, 1, 3);
    return reader.gradients(parameter, "A").count("PRESSURE") == 1 &&
           reader.getArray("PRESSURE", parameter, "A", report, values);
}

bool readArray(const HMDReader& reader, std::size_t report, std::vector<double>& values)
{
    return reader.getArray("DERIVS", {"PORO", 2, 1, 3}, "A", report, values);
}

/// Readers of one file, on several threads, while the cache that they all read and write is taken away.
template <class Reader, class Environment>
void readTogether(const WellCase& wellCase, const KeywordFileBuilder& content)
{
    const std::string file = wellCase.write(content);
    onThreads(threadCount, [&](int number) {
        for (int round = 0; round < rounds; ++round) {
            if (number == 0 || round == rounds / 2)
                Environment::flushContentIndexCache(Service::Directory(wellCase.directory()), "CASE");
            Reader reader;
            reader.read(file);
            EXPECT_EQ(reader.times().size(), reports);
            for (std::size_t report = 0; report < reports; ++report) {
                std::vector<double> values;
                EXPECT_TRUE(readArray(reader, report, values));
                EXPECT_EQ(values, std::vector<double>{static_cast<double>(report)});
            }
        }
    });
    EXPECT_TRUE(wellCase.hasCache());
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(wellCase.directory()))
        files += entry.is_regular_file();
    EXPECT_EQ(files, 2) << "something was left behind";
}

TEST(ConcurrencyWellResults, SeparateReadersRebuildOneCache)
{
    readTogether<RFTReader, RFTReaderEnvironment>({"RFT", "_rft_content_index__.xml"}, wellResults(false));
    readTogether<GRFTReader, GRFTReaderEnvironment>({"GRFT", "_grft_content_index__.xml"}, wellResults(true));
    readTogether<HMDReader, HMDReaderEnvironment>({"HMD", "_hmd_content_index__.xml"}, matchData());
}

TEST(ConcurrencyWellResults, SeparateReadersOfOneDump)
{
    DumpfluxCase dump;
    dump.head().joints({{1, 2, 1, 2}, {3, 4, 2, 1}});
    for (int report = 0; report < reports; ++report)
        dump.range(report, report + 1).array("OIL", std::vector<double>{double(report), -double(report)});
    const std::string file = dump.write();
    onThreads(threadCount, [&](int number) {
        for (int round = 0; round < rounds; ++round) {
            DumpfluxReader reader;
            reader.read(file);
            for (int report = 0; report < reports; ++report) {
                std::vector<double> values;
                DumpfluxReader::Cells outer, inner;
                EXPECT_TRUE(reader.getArray("OIL", report, values, outer, inner, 1 + number % 2));
                const double expected = number % 2 == 0 ? report : -report;
                EXPECT_EQ(values, (std::vector<double>{expected, expected}));
                EXPECT_EQ(outer.size(), 2u);
            }
        }
    });
}

TEST(ConcurrencyWellResults, SeparateMessageWriters)
{
    const TempDir folder;
    onThreads(threadCount, [&](int number) {
        const std::string root = "CASE" + std::to_string(number);
        MessageWriter messages(folder.path(), root, Service::YearMonthDay(2017, 3, 15), true, true);
        for (int round = 0; round < rounds; ++round) {
            messages.open();
            messages.writeMessage(MessageType::Warning, "text of " + root, 10.5 + round, root, "CASE", {});
            messages.close();
        }
        const std::string written = readBytes(folder.file(root + ".MSG"));
        std::size_t count = 0;
        for (std::size_t place = 0; (place = written.find("text of " + root + '\n', place)) != written.npos; ++place)
            ++count;
        EXPECT_EQ(count, rounds);
    });
}

} // namespace
} // namespace MrlIOTest
