#include "support/WellFile.h"

#include <mrlio/GRFTReader.h>
#include <mrlio/GRFTReaderEnvironment.h>
#include <mrlio/MrlIOException.h>

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <boost/regex.hpp>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Names = std::set<std::string>;
using Service::YearMonthDay;

const GRFTParameter permeability("PERMX", 3, 1, -1);
const GRFTParameter porosity("PORO", 4, 2, 5);
const GRFTParameter none;

/// A file of gradients, in the verbs of a simulator.
class GradientFile : public WellFile
{
public:
    using WellFile::WellFile;

    GradientFile& at(float time, int day = 1)
    {
        report(time, day);
        return *this;
    }

    GradientFile& block(const std::string& name, const std::string& lgr = {})
    {
        well(name, lgr);
        return *this;
    }

    /// NAMES and HMHEADI.
    GradientFile& parameter(const GRFTParameter& parameter)
    {
        return names(parameter.name).array("HMHEADI", {parameter.domain, parameter.type, parameter.domain2});
    }

    GradientFile& names(const std::string& name) { return array("NAMES", {std::string("OWNER"), name}); }

    template <class T>
    GradientFile& array(const std::string& name, std::initializer_list<T> values)
    {
        keyword(name, std::vector<T>(values));
        return *this;
    }
};

/// Two reports, two wells, two parameters; the second well has no saturation, the second report one well.
GradientFile usualFile(KeywordFileBuilder::Form form = KeywordFileBuilder::Binary)
{
    GradientFile file(form);
    file.array("FILEHEAD", {7});
    file.at(10).block("W2", "LGR1").array("CONIPOS", {1, 2}).array("CONJPOS", {3, 4});
    file.parameter(permeability).array("PRESSURE", {1.5F, 2.5F}).array("SWAT", {0.25F, 0.5F});
    file.parameter(porosity).array("PRESSURE", {3.5F, 4.5F});
    file.at(10).block("W1").array("CONIPOS", {9}).parameter(permeability).array("PRESSURE", {5.5F});
    file.at(20.25F, 2).block("W1").array("CONIPOS", {8, 7, 6}).array("EXTRA", {1.0, 2.0});
    file.parameter(porosity).array("PRESSURE", {6.5F, 7.5F, 8.5F}).array("SGAS", {0.75F, 1.0F, 2.0F});
    return file;
}

template <class T = float>
std::vector<T> valuesOf(const GRFTReader& reader, const std::string& array, const GRFTParameter& parameter,
                        const std::string& well, std::size_t index)
{
    std::vector<T> values(3, T());
    const bool found = reader.getArray(array, parameter, well, index, values);
    EXPECT_EQ(found, !values.empty());
    return values;
}

template <class E = GRFTReaderException>
std::string failureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const E& exception) {
        return exception.what();
    }
    return "no failure";
}

class GRFT : public ::testing::Test
{
protected:
    const GRFTReader& open(const KeywordFileBuilder& content)
    {
        std::filesystem::remove(case_.cacheFile());
        reader_.read(case_.write(content));
        return reader_;
    }

    /// Reads the file again from its cache, of which a unit has been changed to tell.
    const GRFTReader& reopenFromCache()
    {
        case_.editCache("U17", "CACHE");
        reader_.read(case_.file());
        EXPECT_EQ(reader_.massDensityUnit(), "CACHE");
        return reader_;
    }

    WellCase case_{"GRFT", "_grft_content_index__.xml"};
    GRFTReader reader_;
};

void expectUsualContent(const GRFTReader& reader)
{
    EXPECT_EQ(reader.wells(), (std::vector<std::string>{"W1", "W2"}));
    EXPECT_EQ(reader.getLGR("W2"), "LGR1");
    EXPECT_EQ(reader.wellType("W1"), WellModelType::STANDARD);
    EXPECT_EQ(reader.dates(), (std::vector{YearMonthDay(2030, 1, 1), YearMonthDay(2030, 1, 2)}));
    EXPECT_EQ(reader.times(), (std::vector{10.0F, 20.25F}));
    ASSERT_EQ(reader.parameters(), (std::vector{permeability, porosity}));
    EXPECT_EQ(reader.parameters()[1].type, 4);
    EXPECT_EQ(reader.timeUnit() + reader.depthUnit() + reader.flowVelocityUnit() + reader.energyUnit(), "U0U3U10U18");
    EXPECT_EQ(reader.arrayValueType("EXTRA"), ValueType::DOUB);
    EXPECT_EQ(reader.arrayValueType("NAMES"), 8) << "names parameters and isn't listed";

    const Names wells{"CONIPOS", "CONJPOS", "WELLETC"};
    EXPECT_EQ(reader.basicData(none, "W2"), wells);
    EXPECT_EQ(reader.gradients(none, "W2"), (Names{"PRESSURE", "SWAT"}));
    EXPECT_EQ(reader.basicData(porosity, ""), (Names{"HMHEADI"}));
    EXPECT_EQ(reader.gradients(porosity, "W9"), (Names{"PRESSURE", "SGAS"}));
    EXPECT_EQ(reader.basicData(permeability, "W1"), Names());
    EXPECT_EQ(reader.gradients(permeability, "W1"), (Names{"PRESSURE"})) << "W1 has no SWAT, PERMX no SGAS";
    EXPECT_EQ(reader.gradientsNames(none, ""), (std::vector<std::string>{"PRESSURE", "SGAS", "SWAT"}));
    EXPECT_EQ(reader.basicDataNames(none, "W9"),
              (std::vector<std::string>{"CONIPOS", "CONJPOS", "EXTRA", "FILEHEAD", "HMHEADI", "WELLETC"}));

    EXPECT_EQ(valuesOf(reader, "PRESSURE", permeability, "W2", 0), (std::vector{1.5F, 2.5F}));
    EXPECT_EQ(valuesOf(reader, "PRESSURE", porosity, "W2", 0), (std::vector{3.5F, 4.5F}));
    EXPECT_EQ(valuesOf(reader, "PRESSURE", permeability, "W1", 0), (std::vector{5.5F}));
    EXPECT_EQ(valuesOf<double>(reader, "PRESSURE", porosity, "W1", 1), (std::vector{6.5, 7.5, 8.5}));
    EXPECT_EQ(valuesOf(reader, "PRESSURE", permeability, "W1", 1), std::vector<float>());
    EXPECT_EQ(valuesOf(reader, "PRESSURE", none, "W1", 1), std::vector<float>());
    EXPECT_EQ(valuesOf(reader, "PRESSURE", porosity, "W1", 2), std::vector<float>());
    EXPECT_EQ(reader.getNCON("W2", 0), 2);
    EXPECT_EQ(reader.getNCON("W2", 1), -1);
    EXPECT_EQ(reader.getNCON("W1", YearMonthDay(2030, 1, 2)), 3);
    EXPECT_EQ(reader.getNCON("W1", YearMonthDay(2031, 1, 2)), -1);
}

TEST_F(GRFT, GivesTheContentFromTheScanAndFromTheCache)
{
    expectUsualContent(open(usualFile()));
    expectUsualContent(reopenFromCache());
    const std::string formatted = case_.path("CASE.FGRFT");
    usualFile(KeywordFileBuilder::Text).writeTo(formatted);
    reader_.read(formatted);
    expectUsualContent(reader_);
    EXPECT_EQ(reader_.massDensityUnit(), "U17") << "the cache was another file's";
    EXPECT_EQ(reader_.GRFTFile().GetFileName(), "CASE.FGRFT");
}

TEST_F(GRFT, LooksAtParameterAndWellOnlyWhereTheArrayBelongsToThem)
{
    open(usualFile());
    const GRFTParameter other("OTHER", 0, 0, 0);
    EXPECT_EQ(valuesOf<int>(reader_, "CONIPOS", porosity, "W2", 0), (std::vector{1, 2}));
    EXPECT_EQ(valuesOf<int>(reader_, "HMHEADI", permeability, "W9", 0), (std::vector{1, 3, -1}));
    EXPECT_EQ(valuesOf<double>(reader_, "EXTRA", other, "W9", 1), (std::vector{1.0, 2.0}));
    EXPECT_EQ(valuesOf<std::string>(reader_, "WELLETC", other, "W1", 1)[1], "W1");
    EXPECT_EQ(valuesOf<int>(reader_, "FILEHEAD", none, "", 0), std::vector<int>()) << "ahead of the reports";
    std::vector<float> values{1, 2};
    EXPECT_FALSE(reader_.getArray("PRESSURE", porosity, "W2", YearMonthDay(2031, 1, 1), values));
    EXPECT_EQ(values.size(), 2u) << "untouched for an unknown date";
    EXPECT_TRUE(reader_.getArray("PRESSURE", porosity, "W2", YearMonthDay(2030, 1, 1), values));
    EXPECT_THROW(valuesOf<int>(reader_, "PRESSURE", porosity, "W2", 0), MrlIOException);
}

TEST_F(GRFT, TellsParametersApartByNameAndDomains)
{
    GradientFile file;
    file.at(1).block("W");
    file.names("P").array("HMHEADI", {1, 5}).array("PRESSURE", {1.0F});
    file.names("P").array("HMHEADI", {1, 6, 0}).array("SWAT", {2.0F}); // of another type alone
    file.names("P").array("HMHEADI", {2, 5}).array("PRESSURE", {3.0F});
    file.names("P").array("HMHEADI", {1, 5, -7}).array("PRESSURE", {4.0F});
    file.names("Q").array("HMHEADI", {1, 5, 9}).array("PRESSURE", {5.0F});
    const std::vector<GRFTParameter> expected{{"P", 5, 1, -1}, {"P", 5, 2, -1}, {"P", 5, 1, -7}, {"Q", 5, 1, 9}};
    open(file);
    ASSERT_EQ(reader_.parameters(), expected);
    EXPECT_EQ(reader_.parameters()[0].type, 5) << "the first one";
    EXPECT_EQ(reader_.gradients(expected[0], ""), (Names{"PRESSURE", "SWAT"}));
    EXPECT_EQ(valuesOf(reader_, "SWAT", {"P", 99, 1, -1}, "W", 0), (std::vector{2.0F}));
    EXPECT_EQ(valuesOf(reader_, "PRESSURE", expected[2], "W", 0), (std::vector{4.0F}));
    EXPECT_EQ(valuesOf<int>(reader_, "HMHEADI", expected[0], "", 0), (std::vector{1, 6, 0})) << "the last one";
    // The cache keeps positive second domains alone.
    EXPECT_EQ(case_.cache().find("<domain2>"), case_.cache().rfind("<domain2>"));
    reopenFromCache();
    EXPECT_EQ(reader_.parameters(), (std::vector{expected[0], expected[1], expected[3]}));
}

TEST_F(GRFT, StoresBlocksOnly)
{
    GradientFile file;
    file.at(1).array("SOIL", {1.0F}).block("W").array("HOSTGRID", {1});
    file.names("P").array("PRESSURE", {2.0F}).array("HMHEADI", {1, 2}).array("SWAT", {3.0F});
    file.at(1).array("SGAS", {4.0F}).names("Q").array("HMHEADI", {1, 2}).array("PRESSURE", {5.0F});
    open(file);
    const GRFTParameter p("P", 2, 1, -1);
    const GRFTParameter q("Q", 2, 1, -1);
    EXPECT_EQ(valuesOf(reader_, "SOIL", none, "", 0), std::vector<float>());
    EXPECT_EQ(valuesOf(reader_, "PRESSURE", p, "W", 0), std::vector<float>()) << "NAMES closes the block";
    EXPECT_EQ(valuesOf(reader_, "SWAT", p, "W", 0), (std::vector{3.0F}));
    EXPECT_EQ(valuesOf(reader_, "SGAS", p, "W", 0), std::vector<float>()) << "TIME closes the block";
    EXPECT_EQ(valuesOf(reader_, "PRESSURE", q, "W", 0), (std::vector{5.0F})) << "of the well before TIME";
    // The catalogue knows no blocks.
    EXPECT_EQ(reader_.gradients(p, "W"), (Names{"SGAS", "SWAT"}));
    EXPECT_EQ(reader_.gradients(none, "W"), (Names{"PRESSURE", "SGAS", "SWAT"}));
    EXPECT_EQ(reader_.gradients(none, ""), (Names{"PRESSURE", "SGAS", "SOIL", "SWAT"}));
}

TEST_F(GRFT, TakesATimeAHairLaterAsTheSameDateInLoadingButNotInTheIndex)
{
    GradientFile file;
    file.at(1000).block("A").array("CONIPOS", {1});
    file.at(1000.001F, 2).block("B").array("CONIPOS", {1, 2});
    file.at(1000.1F, 3).block("C").array("CONIPOS", {1, 2, 3});
    open(file);
    ASSERT_EQ(reader_.dates().size(), 3u);
    const auto counts = [this](std::size_t date) {
        return std::vector{reader_.getNCON("A", date), reader_.getNCON("B", date), reader_.getNCON("C", date)};
    };
    EXPECT_EQ(counts(0), (std::vector{1, 2, -1}));
    EXPECT_EQ(counts(1), (std::vector{-1, 2, -1}));
    EXPECT_EQ(counts(2), (std::vector{-1, -1, 3}));

    GradientFile negative;
    negative.at(-999.999F).block("Z").at(-5).block("A").array("CONIPOS", {1});
    negative.at(-5).block("B").array("CONIPOS", {1, 2});
    open(negative);
    EXPECT_EQ(reader_.times(), (std::vector{-5.0F})) << "times begin above -999.999";
    EXPECT_EQ(reader_.getNCON("A", 0), 1);
    EXPECT_EQ(reader_.getNCON("B", 0), -1) << "below zero the next TIME ends the date, although it is the same";
}

TEST_F(GRFT, TellsWhatIsWrongWithAFile)
{
    const std::string scan = "GRFTContentIndex::extractContentIndex";
    const auto inWell = [](auto... content) {
        GradientFile file;
        file.at(1).block("W");
        (file.keyword(content.first, content.second), ...);
        return file;
    };
    const std::pair names("NAMES", std::vector<std::string>{"OWNER", "P"});
    std::vector<std::string> shortWellEtc = WellFile::wellEtc("W");
    shortWellEtc.resize(10);
    const std::vector<std::pair<KeywordFileBuilder, std::string>> faults{
        {inWell(std::pair("NAMES", std::vector<std::string>{"P"})), "NAMES keyword contains less than 2 values"},
        {inWell(names, std::pair("HMHEADI", std::vector<int>{1})), "HMHEADI keyword contains less than 2 values"},
        {inWell(std::pair("HMHEADI", std::vector<int>{1, 2})),
         scan + ": error reading HMHEADI (undefined parameter name)"},
        {inWell(names, std::pair("HMHEADI", std::vector<int>{1, 2}), std::pair("HMHEADI", std::vector<int>{1, 2})),
         scan + ": error reading HMHEADI (undefined parameter name)"},
        {GradientFile().keyword("WELLETC", shortWellEtc), "WELLETC keyword contains less than 11values"},
        {GradientFile().keyword("WELLETC", WellFile::wellEtc("W", "", "standard")),
         "GRFTContentIndex::addWell: unknown well type standard"},
        {GradientFile().keyword("TIME", {1.0F}).keyword("HMHEADI", {1, 2}),
         scan + ": TIME must be followed by DATE, not HMHEADI"},
    };
    for (const auto& fault : faults) {
        EXPECT_EQ(failureOf([&] { open(fault.first); }), fault.second);
        EXPECT_FALSE(case_.hasCache());
        EXPECT_EQ(reader_.GRFTFile().GetFileName(), "");
    }
    const std::string unread = scan + ": reader not initialized";
    EXPECT_EQ(failureOf([&] { reader_.read(case_.path("NONE.GRFT")); }), unread);
    EXPECT_EQ(failureOf([&] { GRFTReader().basicData(none, ""); }), unread);
    EXPECT_EQ(failureOf([&] { GRFTReader().getNCON("W", 0); }), unread);
    expectUsualContent(open(usualFile()));
    EXPECT_THROW(reader_.wellType("W9"), std::invalid_argument);
    EXPECT_THROW(reader_.getLGR(""), std::invalid_argument);
}

TEST_F(GRFT, LeavesADateThatFailsToLoadAsItIs)
{
    // The name comes ahead of the second report, so that the walk over that report alone doesn't meet it.
    GradientFile file;
    file.at(1).block("W").names("P").at(2, 2).block("W").array("CONIPOS", {1, 2}).array("HMHEADI", {1, 2});
    file.array("PRESSURE", {1.0F});
    open(file);
    const GRFTParameter p("P", 2, 1, -1);
    EXPECT_EQ(failureOf([&] { valuesOf(reader_, "PRESSURE", p, "W", 1); }),
              "GRFTDataLoaderIncremental::loadData: error reading HMHEADI (undefined parameter name)");
    EXPECT_EQ(valuesOf(reader_, "PRESSURE", p, "W", 1), std::vector<float>());
    EXPECT_EQ(reader_.getNCON("W", 1), 2) << "what stood ahead of the fault";

    file.at(3, 3).block("W").array("CONIPOS", {1.0F});
    open(file);
    EXPECT_EQ(failureOf([&] { reader_.getNCON("W", 2); }),
              "GRFTDataLoaderIncremental::getArrayOfType: requested array type does not match the actual storage type");
    case_.editCache("<offset>" + std::to_string(file.datePositions[2]), "<offset>0");
    reader_.read(case_.file());
    EXPECT_EQ(failureOf([&] { reader_.getNCON("W", 2); }), "GRFTDataLoaderIncremental::loadData: error reading DATE");
}

TEST_F(GRFT, SharesTheSetsOfBothUntilTheNextCall)
{
    open(usualFile());
    const Names& shared = reader_.gradients(permeability, "W2");
    EXPECT_EQ(shared, (Names{"PRESSURE", "SWAT"}));
    const Names& ofWell = reader_.gradients(none, "W1");
    GRFTReader other;
    other.read(case_.file());
    other.basicData(porosity, "W1");
    EXPECT_EQ(shared, (Names{"PRESSURE", "SGAS"}));
    EXPECT_EQ(ofWell, (Names{"PRESSURE", "SGAS"})) << "the reader's own";
}

TEST_F(GRFT, WritesTheAgreedCache)
{
    open(usualFile());
    std::string text = boost::regex_replace(case_.cache(), boost::regex(">\\s+<"), "><");
    text = boost::regex_replace(text, boost::regex("<(second|minute|hour|day|month|year|length)>\\d+</\\1>"), "");
    for (const std::string part :
         {"<GRFTContentIndex xmlns=\"http://kvt.example/Mrl/MrlIO/GRFTContentIndex\"><!--Do not modify this file.  It ",
          "the next time the GRFT data is loaded.--><version>1</version><file><fileName>CASE.GRFT</fileName>",
          "</units><arrays><basicData><array name=\"CONIPOS\" type=\"INTE\"/>", "<gradients><array name=\"PRESSURE\" ",
          "</arrays><parameters><parameter><name>PERMX</name><type>3</type><domain>1</domain><arrays><basicData>"
          "<array name=\"HMHEADI\"/></basicData><gradients><array name=\"PRESSURE\"/><array name=\"SWAT\"/>",
          "<domain>2</domain><domain2>5</domain2>", "</parameters><wells><well><name>W1</name><type>STANDARD</type><ar",
          "<type>STANDARD</type><lgr>LGR1</lgr><arrays>", "</wells><dates><date><time>10</time><offset>"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\nisn't in\n" << text;
    GRFTReaderEnvironment::flushContentIndexCache(Service::Directory(case_.directory()), "CASE");
    EXPECT_FALSE(case_.hasCache());
}

TEST_F(GRFT, ScansAgainIfTheCacheIsNotWhole)
{
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"<version>1", "<version>2"},
             {"<parameters>", "<parameters/><parameters>"},
             {"<name>PERMX</name>", "<name/>"},
             {"<array name=\"HMHEADI\"/>", "<array/>"},
             {"<time>10", "<time>-10"},
         }) {
        open(usualFile());
        case_.editCache(from, to);
        case_.editCache("U17", "CACHE");
        GRFTReader fresh;
        fresh.read(case_.file());
        EXPECT_EQ(fresh.massDensityUnit(), "U17") << from;
        EXPECT_EQ(fresh.gradients(porosity, "W1"), (Names{"PRESSURE", "SGAS"}));
        EXPECT_EQ(fresh.getNCON("W1", fresh.dates().size() - 1), 3) << from;
    }
    for (const std::string from : {"<type>3", "<domain>1", "<domain2>5"}) {
        open(usualFile());
        case_.editCache(from, from + "x");
        EXPECT_THROW(reader_.read(case_.file()), boost::bad_lexical_cast) << from;
        EXPECT_EQ(reader_.GRFTFile().GetFileName(), "");
    }
    open(usualFile());
    case_.editCache("<type>3</type>", "");
    EXPECT_EQ(reopenFromCache().parameters()[0].type, -1);
}

TEST_F(GRFT, SurvivesEveryCutOfFileAndCache)
{
    const std::string whole = usualFile().bytes();
    // Where the file is written over, some file systems wait for the disk.
    const auto replace = [](const std::string& file, const std::string& bytes) {
        std::filesystem::remove(file);
        writeBytes(file, bytes);
    };
    const auto ask = [this] {
        try {
            reader_.read(case_.file());
            for (std::size_t date = 0; date < reader_.dates().size(); ++date)
                reader_.getNCON("W1", date);
            return true;
        } catch (const MrlIOException&) {
            return false;
        }
    };
    int sound = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        std::filesystem::remove(case_.cacheFile());
        replace(case_.file(), whole.substr(0, length));
        sound += ask();
    }
    EXPECT_GT(sound, 20);
    EXPECT_LT(sound, 150) << "only cuts at or right behind the end of a keyword are sound";
    const std::string cache = case_.cache();
    for (std::size_t length = 0; length + 2 < cache.size(); length += 7) {
        replace(case_.cacheFile(), cache.substr(0, length));
        EXPECT_FALSE(ask()) << length;
    }
}

} // namespace
