#include "support/TempDir.h"

#include <mrlio/KeywordTmpl.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MorvaneWriterCreator.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::TempDir;

namespace {

class CellIndexes : public KeywordINTE
{
public:
    using KeywordINTE::KeywordINTE;

    int getShift() const override { return -1; }
};

/// Writes the record twice in each form and reads the second one, so that the walk has to pass the first.
template <class Record>
void expectReadsBack(Record written)
{
    SCOPED_TRACE(written.name() + " of " + std::to_string(written.array().size()));
    const TempDir dir;
    for (const auto form : {MorvaneWriterCreator::Unformatted, MorvaneWriterCreator::Formatted}) {
        const auto writer = MorvaneWriterCreator::create(dir.file("CASE").c_str(), form);
        ASSERT_TRUE(writer->writeKeyword(written) && writer->writeKeyword(written) && writer->endWrite());
        const auto reader =
            MorvaneReaderUtils::createAndInitReader(dir.file("CASE"), form == MorvaneWriterCreator::Formatted);
        ASSERT_NE(reader, nullptr);
        KeywordHeader header;
        ASSERT_TRUE(reader->readNextKeywordHeader(header) && reader->readNextKeywordHeader(header));
        EXPECT_EQ(header.name(), written.name());
        EXPECT_EQ(header.size(), std::ssize(written.array()));
        EXPECT_EQ(header.valueTypeInfo().intData(), written.valueTypeInfo().intData());
        Record record(header);
        EXPECT_TRUE(reader->readData(record));
        EXPECT_EQ(record.array(), written.array());
        EXPECT_FALSE(reader->readNextKeywordHeader(header));
    }
}

} // namespace

TEST(KeywordRoundTrip, EveryKindInBothFormsAtTheEdgesOfBlocks)
{
    for (const std::size_t count : {1U, 105U, 106U, 1000U, 1001U, 2003U}) {
        KeywordTmpl<0> doubles("DOUBLES");
        KeywordTmpl<1> reals("REALS");
        KeywordTmpl<3> flags("FLAGS");
        KeywordCHAR names("NAMES");
        KeywordTmpl<6> words("WORDS");
        CellIndexes indexes("INDEXES");
        for (std::size_t i = 0; i < count; ++i) {
            // So few digits that the formatted form holds them exactly.
            const int number = static_cast<int>(i) * 7919 - 3000000;
            doubles.array().push_back(number * 1.0e12);
            reals.array().push_back(static_cast<float>(number % 100000) * 0.25F);
            flags.array().push_back(number % 2 == 0 ? 1 : 0);
            names.array().push_back(std::to_string(i));
            words.array().push_back(std::string(i % 20, 'x') + std::to_string(i));
            indexes.array().push_back(number);
        }
        expectReadsBack(doubles);
        expectReadsBack(reals);
        expectReadsBack(flags);
        expectReadsBack(names);
        expectReadsBack(words);
        expectReadsBack(indexes);

        // Records of the other type's class, as a reader makes them of what it finds.
        KeywordCHAR longNames(KeywordHeader("LONG", -1, ValueTypeInfo(ValueType::C0nn, 30), std::int64_t{0}));
        KeywordTmpl<6> shortNames(KeywordHeader("SHORT", -1, ValueType::CHAR, std::int64_t{0}));
        longNames.array() = words.array();
        shortNames.array() = names.array();
        expectReadsBack(longNames);
        expectReadsBack(shortNames);
    }
}
