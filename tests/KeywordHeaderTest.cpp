#include <mrlio/ConcreteKeyword.h>
#include <mrlio/DumpfluxBoundaryType.h>
#include <mrlio/KeywordHeader.h>
#include <mrlio/KeywordTmpl.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/PhaseType.h>
#include <mrlio/SummaryVectorType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/ValueType.h>
#include <mrlio/WellModelType.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Kvt::Mrl::MrlIO;

TEST(ValueTypeInfoTest, ParsesTypeTextsInAnyCase)
{
    const struct
    {
        const char* text;
        ValueType::Enum type;
        int width;
    } cases[] = {
        {"DOUB", ValueType::DOUB, -1}, {"real", ValueType::REAL, -1}, {"Inte", ValueType::INTE, -1},
        {"LOGI", ValueType::LOGI, -1}, {"CHAR", ValueType::CHAR, -1}, {"MESS", ValueType::MESS, -1},
        {"X231", ValueType::X231, -1}, {"C016", ValueType::C0nn, 16}, {"c008", ValueType::C0nn, 8},
        {"C05", ValueType::C0nn, 5},   {"C0-1", ValueType::C0nn, -1}, {"C0+7", ValueType::C0nn, 7},
        {"C000", ValueType::C0nn, 0},
    };

    for (const auto& c : cases) {
        const ValueTypeInfo info{std::string(c.text)};
        EXPECT_EQ(info.type(), c.type) << c.text;
        EXPECT_EQ(info.intData(), c.width) << c.text;
    }
}

TEST(ValueTypeInfoTest, QuotesTheTextThatItRefuses)
{
    for (const std::string text :
         {"", "DOUBLE", "C0nn", "c0NN", "C0", "C0 8", "C0- ", "C0-", "C0+-", "C1+6", "C016 ", "REA", "integer"}) {
        try {
            ValueTypeInfo info(text);
            ADD_FAILURE() << text;
        } catch (const MrlIOException& fault) {
            EXPECT_EQ(fault.what(), "Kvt::Mrl::MrlIO::ValueTypeInfo::ValueTypeInfo: string cannot be parsed into "
                                    "ValueTypeInfo: \"" +
                                        text + "\"");
        }
    }
}

template <class X>
void expectLabel(typename X::Enum value, const std::string& label)
{
    std::string found;
    EXPECT_TRUE(Service::findLabel<X>(value, found)) << label;
    EXPECT_EQ(found, label);
    auto back = static_cast<typename X::Enum>(-1);
    EXPECT_TRUE(Service::findEnum<X>(label, back)) << label;
    EXPECT_EQ(back, value) << label;
}

TEST(EnumerationTest, LabelsStandInTheOrderOfTheValues)
{
    expectLabel<ValueType>(ValueType::C0nn, "C0nn");
    expectLabel<UnitSystemType>(UnitSystemType::PVT_M, "PVT-M");
    expectLabel<PhaseType>(PhaseType::GAS_WATER, "GAS_WATER");
    expectLabel<WellModelType>(WellModelType::MULTISEG, "MULTISEG");
    expectLabel<DumpfluxBoundaryType>(DumpfluxBoundaryType::FLUX, "FLUX");
    expectLabel<SummaryVectorType>(SummaryVectorType::INTER_REGION_FLOW, "INTER_REGION_FLOW");
    expectLabel<SummaryVectorType>(SummaryVectorType::TIME, "TIME");
    expectLabel<SummaryVectorType>(SummaryVectorType::EDGE, "EDGE");
    EXPECT_EQ(PhaseType::OIL_GAS + 1, 1 | 4);
}

TEST(EnumerationTest, LooksUpWholeLabelsInTheirOwnCase)
{
    auto phase = PhaseType::GAS;
    EXPECT_FALSE(Service::findEnum<PhaseType>("oil", phase));
    EXPECT_FALSE(Service::findEnum<PhaseType>("OIL ", phase));
    EXPECT_EQ(phase, PhaseType::GAS);
    std::string label = "untouched";
    EXPECT_FALSE(Service::findLabel<SummaryVectorType>(static_cast<SummaryVectorType::Enum>(21), label));
    EXPECT_EQ(label, "untouched");
}

TEST(KeywordHeaderTest, KeepsOrDropsTheWidthOfStrings)
{
    KeywordHeader header("NAMES", 3, ValueTypeInfo(ValueType::C0nn, 16), 24);
    header.valueType(ValueType::C0nn);
    EXPECT_EQ(header.valueTypeInfo().intData(), -1);
    header.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, 12));
    EXPECT_EQ(header.valueTypeInfo().intData(), 12);
}

TEST(KeywordHeaderTest, SetsOneOrBothPositions)
{
    constexpr std::int64_t far = 5'000'000'000;
    KeywordHeader header("ZCORN", 8, ValueType::REAL, std::streampos(far));
    EXPECT_EQ(header.keywordLargePos(), far);
    EXPECT_EQ(header.second_keywordLargePos(), far);
    header.second_keywordLargePos(far + 24);
    EXPECT_EQ(header.keywordLargePos(), far);
    EXPECT_EQ(header.second_keywordPos(), std::streampos(far + 24));
    header.keywordLargePos(7);
    EXPECT_EQ(header.second_keywordLargePos(), 7);
    header.keywordPos(std::streampos(9));
    EXPECT_EQ(header.second_keywordLargePos(), 9);
}

TEST(KeywordHeaderTest, SplitsPositionsIntoRemainderAndMultiplier)
{
    for (const std::int64_t position : {std::int64_t{0}, std::int64_t{2147483647}, std::int64_t{2147483648},
                                        std::int64_t{4294967301}, std::int64_t{1} << 50}) {
        const int multiplier = KeywordHeader::getMultiplierPos(position);
        const int remainder = KeywordHeader::getRemainderPos(position);
        EXPECT_EQ(multiplier, position >> 31);
        EXPECT_EQ(KeywordHeader::getLargePos(remainder, multiplier), position);
    }
    EXPECT_EQ(KeywordHeader::getLargePos(5, 2), 4294967301);
}

TEST(KeywordHeaderTest, SplitsLargeCountsOverTwoHeaders)
{
    const ValueTypeInfo strings(ValueType::C0nn, 20);
    KeywordHeader header("BIG", 1, strings, 48);
    EXPECT_FALSE(header.requires_double_header(2147483647));
    EXPECT_TRUE(header.requires_double_header(2147483648));

    KeywordHeader first;
    KeywordHeader second;
    header.split_header(first, second, 2 * std::uint64_t{KeywordHeader::twoPower31} + 7);
    EXPECT_EQ(first.name(), "BIG");
    EXPECT_EQ(first.size(), 2);
    EXPECT_EQ(first.valueType(), ValueType::X231);
    EXPECT_EQ(first.valueTypeInfo().intData(), -1);
    EXPECT_EQ(second.size(), 7);
    EXPECT_EQ(second.valueTypeInfo().intData(), 20);
    EXPECT_EQ(second.keywordLargePos(), 48);
    EXPECT_EQ(header.size(), 1);

    first.update_header_size(second.size());
    EXPECT_EQ(first.size(), 2 * std::int64_t{2147483648} + 7);
    EXPECT_EQ(first.second_size(), 7);
    header.split_header(header, second, KeywordHeader::twoPower31);
    EXPECT_EQ(header.size(), 1);
    EXPECT_EQ(second.size(), 0);
    EXPECT_EQ(second.valueType(), ValueType::C0nn);
}

class ShiftedRecord : public KeywordINTE
{
public:
    using KeywordINTE::KeywordINTE;

    int getShift() const override { return -1; }
};

struct MAPUNITS_traits
{
    static constexpr const char* name = "MAPUNITS";
    static constexpr int size = 1;
    static constexpr ValueType::Enum type = ValueType::CHAR;
};

TEST(KeywordRecordTest, TakesItsSizeFromTheConstructor)
{
    EXPECT_EQ(KeywordTmpl<0>().size(), -1);
    EXPECT_EQ(KeywordTmpl<0>("A").size(), 0);
    KeywordTmpl<6> strings("C", {"one", "two"});
    EXPECT_EQ(strings.size(), 2);
    EXPECT_EQ(strings.valueType(), ValueType::C0nn);
    strings.setArray({"x"}, false);
    EXPECT_EQ(strings.size(), 2);
    strings.setArray({"x"}, true);
    EXPECT_EQ(strings.size(), 1);

    const KeywordTmpl<1> foreign(KeywordHeader("N", 4, ValueType::INTE, std::int64_t{72}));
    EXPECT_EQ(foreign.valueType(), ValueType::INTE);
    EXPECT_EQ(foreign.keywordLargePos(), 72);
    EXPECT_TRUE(foreign.array().empty());
}

TEST(KeywordRecordTest, MovesTheArrayAndCopiesTheHeader)
{
    ShiftedRecord record("INDEX", {1, 2, 3});
    ShiftedRecord moved(std::move(record));
    EXPECT_EQ(moved.array(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(record.name(), "INDEX"); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(record.size(), 3);
    EXPECT_TRUE(record.array().empty());
    record = std::move(moved);
    EXPECT_EQ(record.array().size(), 3u);
    EXPECT_TRUE(moved.array().empty()); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(static_cast<const KeywordINTE&>(record).getShift(), -1);
}

TEST(KeywordRecordTest, ConcreteKeywordsKnowWhatTheyStandFor)
{
    using MapUnits = ConcreteKeyword<MAPUNITS_traits>;
    static_assert(std::is_base_of_v<KeywordCHAR, MapUnits>);
    EXPECT_EQ(MapUnits::getKeywordName(), "MAPUNITS");
    EXPECT_EQ(MapUnits::getKeywordArraySize(), 1);
    EXPECT_EQ(MapUnits::getKeywordValueType(), ValueType::CHAR);
    EXPECT_EQ(MapUnits("MAPUNITS", {"WELLNAME", "-X"}).getConcatenatedName(), "WELLNAME-X");
    EXPECT_EQ(MapUnits().getConcatenatedName(), "");
    EXPECT_EQ(MapUnits(KeywordHeader("M", 1, ValueType::CHAR, std::int64_t{24})).keywordLargePos(), 24);
}

} // namespace
