#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/HMDReader.h>
#include <mrlio/HMDReaderEnvironment.h>
#include <mrlio/MrlIOException.h>

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <boost/regex.hpp>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Builder = KeywordFileBuilder;
using Strings = std::vector<std::string>;

constexpr std::size_t preamble = std::numeric_limits<std::size_t>::max();

const HMDParameter porosity("PORO", 7, 3, -1);
const HMDParameter faults("FAULT", 8, 4, 5);

/// A well or group and a parameter, the first number of HMHEADI being the domain and the second one the type.
Builder& block(Builder& file, const std::string& names, const std::string& owner, const HMDParameter& parameter,
               const std::vector<float>& derivatives)
{
    file.keyword(names, {owner.c_str(), parameter.name.c_str()});
    file.keyword("HMHEADI", {parameter.domain, parameter.type, parameter.domain2 == -1 ? 0 : parameter.domain2});
    return file.keyword("DERIVS", derivatives);
}

Builder sample(Builder::Form form = Builder::Binary)
{
    Builder file(form);
    file.keyword("CODESTAT", {"CODED"}).keyword("MA10INFO", {4, 5}).keyword("GRADWELL", {"WOPR", "", "WBHP"});
    file.keyword("GRADGRUP", {"GOPR"}).keyword("TIMESTEP", {0.1, 1.0});
    block(file, "NAMES", "P1", porosity, {1, 2}).keyword("VALUES", {10.5, 20.5});
    block(file, "GNAMES", "FIELD", faults, {3});
    file.keyword("TIMESTEP", {0.1, 1.0}); // as each further well may repeat it
    block(file, "NAMES", "P2", faults, {4, 5}).keyword("TIMESTEP", {31.0, 30.9});
    return block(file, "NAMES", "P2", porosity, {6});
}

class HMDReading : public ::testing::Test
{
protected:
    std::string path(const std::string& name = "CASE.HMD") const { return dir_.file(name); }

    std::string cachePath() const { return dir_.file("CASE_hmd_content_index__.xml"); }

    void read(const Builder& file)
    {
        file.writeTo(path());
        flush();
        reader_.read(path());
    }

    void flush() const
    {
        HMDReaderEnvironment::flushContentIndexCache(Kvt::Mrl::Core::Service::Directory(dir_.path()), "CASE");
    }

    /// Changes the cache; false if it doesn't hold the pattern.
    bool editCache(const std::string& pattern, const std::string& replacement) const
    {
        const std::string before = readBytes(cachePath());
        const std::string after = boost::regex_replace(before, boost::regex(pattern), replacement);
        writeBytes(cachePath(), after);
        return before != after;
    }

    /// An array of a report; {-1} for none.
    std::vector<double> values(const std::string& array, const HMDParameter& parameter, const std::string& name,
                               std::size_t index)
    {
        std::vector<double> out{99};
        if (reader_.getArray(array, parameter, name, index, out))
            return out;
        return out.empty() ? std::vector<double>{-1} : out;
    }

    /// What an operation throws; empty if it doesn't.
    template <class Operation>
    static std::string failure(Operation&& operation)
    {
        try {
            operation();
        } catch (const MrlIOException& exception) {
            return exception.what();
        }
        return "";
    }

    TempDir dir_;
    HMDReader reader_;
};

using Numbers = std::vector<double>;

TEST_F(HMDReading, TellsWhatAFileHoldsFromScanAndCache)
{
    for (const std::string& name : Strings{"CASE.HMD", "CASE.FHMD"}) {
        sample(name == "CASE.HMD" ? Builder::Binary : Builder::Text).writeTo(path(name));
        for (int round = 0; round < 2; ++round) {
            SCOPED_TRACE(name + (round == 0 ? " scanned" : " from the cache"));
            reader_.read(path(name));
            EXPECT_EQ(reader_.HMDFile().GetFileName(), name);
            EXPECT_TRUE(reader_.isFileEncoded());
            EXPECT_TRUE(reader_.isSinglePrecision());
            EXPECT_FALSE(reader_.isWithoutValues());
            EXPECT_EQ(reader_.times(), (Numbers{0.1, 31.0}));
            EXPECT_EQ(reader_.timeSteps(), (Numbers{1.0, 30.9}));
            EXPECT_EQ(reader_.parameters(), (std::vector<HMDParameter>{faults, porosity}));
            EXPECT_EQ(reader_.parameters().at(1).type, 7);
            EXPECT_EQ(reader_.wellNames(), (Strings{"P1", "P2"}));
            EXPECT_EQ(reader_.groupNames(), Strings{"FIELD"});
            EXPECT_EQ(reader_.wellQuantities(), (Strings{"WOPR", "", "WBHP"}));
            EXPECT_EQ(reader_.groupQuantities(), Strings{"GOPR"});
            EXPECT_EQ(reader_.preambleArrayNames(), (Strings{"GRADGRUP", "GRADWELL", "MA10INFO"}));
            EXPECT_EQ(reader_.variableArrayNames(), (Strings{"GNAMES", "HMHEADI", "NAMES"}));
            EXPECT_EQ(reader_.gradientArrayNames(), (Strings{"DERIVS", "VALUES"}));
            EXPECT_EQ(reader_.arrayValueType("VALUES"), ValueType::DOUB);
            EXPECT_EQ(reader_.arrayValueType("TIMESTEP"), 8);
            EXPECT_EQ(values("DERIVS", faults, "P2", 0), (Numbers{4, 5}));
            EXPECT_EQ(values("DERIVS", porosity, "P2", 1), (Numbers{6}));
        }
    }
}

TEST_F(HMDReading, FindsArraysByWhatTheyDependOn)
{
    read(sample());
    EXPECT_EQ(values("DERIVS", porosity, "P1", 0), (Numbers{1, 2}));
    EXPECT_EQ(values("DERIVS", HMDParameter("PORO", 99, 3, -1), "P1", 0), (Numbers{1, 2}));
    EXPECT_EQ(values("DERIVS", faults, "FIELD", 0), (Numbers{3}));
    EXPECT_EQ(values("VALUES", faults, "P1", 0), (Numbers{10.5, 20.5}));
    EXPECT_EQ(values("HMHEADI", faults, "nobody", 0), (Numbers{4, 8, 5}));
    Strings names;
    EXPECT_TRUE(reader_.getArray("GNAMES", faults, "FIELD", 0, names));
    EXPECT_EQ(names, (Strings{"FIELD", "FAULT"}));

    EXPECT_EQ(values("DERIVS", HMDParameter("PORO", 7, 4, -1), "P1", 0), Numbers{-1});
    EXPECT_EQ(values("DERIVS", porosity, "P1", 1), Numbers{-1});
    EXPECT_EQ(values("DERIVS", porosity, "P1", 2), Numbers{-1});
    EXPECT_EQ(values("MA10INFO", porosity, "P1", 0), Numbers{-1});
    std::vector<int> integers{1};
    EXPECT_NE(failure([&] { reader_.getArray("DERIVS", porosity, "P1", 0, integers); }), "");
    EXPECT_TRUE(integers.empty());
}

TEST_F(HMDReading, KeepsThePreambleApart)
{
    read(sample());
    Strings strings;
    EXPECT_TRUE(reader_.getArray("GRADWELL", strings));
    EXPECT_EQ(strings, (Strings{"WOPR", "", "WBHP"}));
    std::vector<int> integers;
    EXPECT_TRUE(reader_.getArray("MA10INFO", integers));
    EXPECT_FALSE(reader_.getArray("CODESTAT", strings));
    EXPECT_FALSE(reader_.getArray("NAMES", strings));
    EXPECT_EQ(values("MA10INFO", faults, "P2", preamble), (Numbers{4, 5}));
    EXPECT_EQ(values("DERIVS", porosity, "P1", preamble), Numbers{-1});

    // Without reports everything belongs to it, whatever comes first, and without parameter and well if none was named.
    Builder file;
    file.keyword("DERIVS", {8.0}).keyword("CODESTAT", {"coded"}).keyword("GRADRESV", std::vector<int>());
    read(block(file, "NAMES", "P1", porosity, {9}));
    EXPECT_TRUE(reader_.times().empty());
    EXPECT_FALSE(reader_.isFileEncoded());
    EXPECT_TRUE(reader_.isWithoutValues());
    EXPECT_FALSE(reader_.isSinglePrecision()); // as the first DERIVS tells
    EXPECT_EQ(values("DERIVS", {}, "", preamble), Numbers{8});
    EXPECT_EQ(values("DERIVS", porosity, "P1", preamble), Numbers{9});
    EXPECT_TRUE(reader_.getArray("GRADRESV", integers));
    EXPECT_TRUE(integers.empty());

    // It ends at any TIMESTEP, also where the time is too early for a report, or none.
    for (const double time : {-1e30, std::numeric_limits<double>::quiet_NaN()}) {
        Builder early;
        early.keyword("DERIVS", {8.0}).keyword("TIMESTEP", {time, 1.0}).keyword("DERIVS", {9.0});
        read(early);
        EXPECT_TRUE(reader_.times().empty());
        EXPECT_EQ(values("DERIVS", {}, "", preamble), Numbers{8});
    }
}

TEST_F(HMDReading, NamesWaitForTheirParameterUnderTheirOwnOwner)
{
    Builder file;
    file.keyword("TIMESTEP", {1.0f, 1.0f}).keyword("NAMES", {"W", "PORO"}).keyword("GNAMES", {"G", "PORO"});
    file.keyword("HMHEADI", {3, 7}).keyword("DERIVS", {1.0f}).keyword("NAMES", {"LAST", "FAULT"});
    read(file);
    Strings names;
    EXPECT_TRUE(reader_.getArray("NAMES", porosity, "W", 0, names));
    EXPECT_EQ(names, (Strings{"W", "PORO"}));
    EXPECT_TRUE(reader_.getArray("GNAMES", porosity, "G", 0, names));
    EXPECT_FALSE(reader_.getArray("NAMES", porosity, "G", 0, names));
    EXPECT_FALSE(reader_.getArray("NAMES", porosity, "LAST", 0, names));
    EXPECT_EQ(values("DERIVS", porosity, "G", 0), Numbers{1});
    EXPECT_EQ(reader_.wellNames(), (Strings{"LAST", "W"}));

    // A group with the name of a well takes its place.
    Builder twins;
    twins.keyword("TIMESTEP", {1.0f, 1.0f});
    block(twins, "NAMES", "TWIN", porosity, {1});
    read(block(twins, "GNAMES", "TWIN", porosity, {2}));
    EXPECT_EQ(values("DERIVS", porosity, "TWIN", 0), Numbers{2});
}

TEST_F(HMDReading, AReportEndsAtATimeBeyondItsTolerance)
{
    const struct
    {
        double first, second;
        std::size_t reports;
        bool isOneReport; // for the load of the first
    } cases[] = {
        {10, 10, 1, true},
        {10, 9, 1, true},
        {10, 10 * (1 + 5e-10), 2, true},
        {10, 10 * (1 + 2e-9), 2, false},
        {0, 0, 1, true},
        {0, 1e-300, 2, false},
        {-5, -5, 1, false},
    };

    for (const auto& row : cases) {
        SCOPED_TRACE(::testing::Message() << row.first << ' ' << row.second);
        Builder file;
        file.keyword("TIMESTEP", {row.first, 1.0});
        block(file, "NAMES", "W", porosity, {1}).keyword("TIMESTEP", {row.second, 1.0});
        read(block(file, "NAMES", "W", porosity, {2}));
        EXPECT_EQ(reader_.times().size(), row.reports);
        EXPECT_EQ(values("DERIVS", porosity, "W", 0), Numbers{row.isOneReport ? 2.0 : 1.0});
    }
}

TEST_F(HMDReading, SaysWhatIsWrongWithAFile)
{
    const std::string scan = "HMDContentIndex::extractContentIndex: ";

    const struct
    {
        Builder file;
        std::string text;
    } cases[] = {
        {Builder(), scan + "reader not initialized"},
        {Builder().keyword("CODESTAT", Strings()), "CODESTAT keyword contains less than 1 value"},
        {Builder().keyword("TIMESTEP", {1.0f}), "TIMESTEP keyword contains less than 2 values"},
        {Builder().keyword("NAMES", {"W"}), "NAMES keyword contains less than 2 values"},
        {Builder().keyword("GNAMES", {"G"}), "GNAMES keyword contains less than 2 values"},
        {Builder().keyword("NAMES", {"", "P"}), scan + "error reading NAMES (undefined well name)"},
        {Builder().keyword("GNAMES", {"", "P"}), scan + "error reading GNAMES (undefined group name)"},
        {Builder().keyword("HMHEADI", {1}), "HMHEADI keyword contains less than 2 values"},
        {sample().keyword("HMHEADI", {1, 2}), scan + "error reading HMHEADI (undefined parameter name)"},
        {Builder().keyword("NAMES", {"W", ""}).keyword("HMHEADI", {1, 2}),
         scan + "error reading HMHEADI (undefined parameter name)"},
        {Builder().keyword("derivs", {1}), "HMDArrayNamesCollections::addArrayName: unhandled array type 3"},
    };

    for (const auto& row : cases) {
        EXPECT_EQ(failure([&] { read(row.file); }), row.text);
        EXPECT_EQ(reader_.HMDFile().GetFileName(), "");
        EXPECT_FALSE(std::filesystem::exists(cachePath()));
        EXPECT_EQ(failure([&] { reader_.times(); }), scan + "reader not initialized");
    }
}

TEST_F(HMDReading, AFileCutAnywhereNeverCrashes)
{
    for (const auto form : {Builder::Binary, Builder::Text}) {
        const std::string bytes = sample(form).bytes();
        const std::string file = path(form == Builder::Binary ? "CASE.HMD" : "CASE.FHMD");
        for (std::size_t length = 0; length < bytes.size(); length += form == Builder::Binary ? 1 : 7) {
            writeBytes(file, bytes.substr(0, length));
            flush();
            if (failure([&] { reader_.read(file); }) != "")
                continue;
            for (const std::size_t index : {preamble, std::size_t{0}, std::size_t{1}})
                failure([&] { values("DERIVS", porosity, "P1", index); });
        }
    }
}

TEST_F(HMDReading, KeepsExactTimesAndOddParametersInTheCache)
{
    const double time = 0.1 + 0.2;
    const HMDParameter odd("A<&\xE9", 1, -2, -7);
    Builder file;
    file.keyword("TIMESTEP", {time, -0.5});
    block(file, "NAMES", "W", odd, {1}).keyword("TIMESTEP", {1e300, 1.0});
    read(file);
    ASSERT_TRUE(editCache("<name>W<", "<name>FROMCACHE<"));
    reader_.read(path());
    EXPECT_EQ(reader_.wellNames(), Strings{"FROMCACHE"});
    EXPECT_EQ(reader_.times(), (Numbers{time, 1e300}));
    EXPECT_EQ(reader_.timeSteps(), (Numbers{-0.5, 1}));
    EXPECT_EQ(reader_.parameters(), std::vector<HMDParameter>{odd});
    EXPECT_EQ(values("DERIVS", odd, "W", 0), Numbers{1});
}

TEST_F(HMDReading, JudgesAnEditedCache)
{
    enum Result
    {
        Used,
        Rescanned,
        Throws
    };

    const struct
    {
        const char *pattern, *replacement;
        Result result;
    } cases[] = {
        {"<domain2>5</domain2>", "", Used},
        {"<array name=\"MA10INFO\" type=\"INTE\"/>", "", Used},
        {"<version>1<", "<version>2<", Rescanned},
        {"<encoded>1</encoded>", "", Rescanned},
        {"<length>\\d+<", "<length>1<", Rescanned},
        {"name=\"DERIVS\" type", "name=\"DERIVS\" kind", Rescanned},
        {"<name>FAULT</name>", "", Rescanned},
        {"<name>P2</name>", "<name/>", Rescanned},
        {"<groups>(.*?)</groups>.*?<quantities>", "<quantities>", Rescanned},
        {"<value>0.10*1?</value>", "", Rescanned},
        {"<offset>\\d+</offset>", "<offset>-1</offset>", Rescanned},
        {"<encoded>1<", "<encoded>yes<", Throws},
        {"<domain>4<", "<domain>99999999999<", Throws},
        {"<offset>\\d+<", "<offset>12 <", Throws},
        {"type=\"DOUB\"", "type=\"LONG\"", Throws},
        {"</times>", "", Throws},
    };

    for (const auto& row : cases) {
        SCOPED_TRACE(row.pattern);
        read(sample());
        ASSERT_TRUE(editCache(row.pattern, row.replacement));
        // Seen if the cache is used, or has been overwritten.
        ASSERT_TRUE(editCache("<name>GOPR<", "<name>SEEN<"));
        Result result = Throws;
        try {
            reader_.read(path());
            result = reader_.groupQuantities() == Strings{"SEEN"} ? Used : Rescanned;
            EXPECT_EQ(reader_.times(), (Numbers{0.1, 31.0}));
        } catch (const MrlIOException&) {
        } catch (const boost::bad_lexical_cast&) {}
        EXPECT_EQ(result, row.result);
    }
}

TEST_F(HMDReading, DemandsTheReportWhereTheCacheSaysItIs)
{
    read(sample());
    ASSERT_TRUE(editCache("(<value>31.*?<offset>)\\d+<", "${1}0<"));
    reader_.read(path());
    EXPECT_EQ(failure([&] { values("DERIVS", porosity, "P2", 1); }),
              "HMDDataLoaderIncremental::loadData: error reading TIMESTEP");
    EXPECT_EQ(values("DERIVS", porosity, "P2", 1), Numbers{-1});
    flush();
    reader_.read(path());
    EXPECT_EQ(values("DERIVS", porosity, "P2", 1), Numbers{6});
}

} // namespace
