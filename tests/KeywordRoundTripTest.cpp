#include "support/TempDir.h"

#include <mrlio/KeywordTmpl.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MorvaneWriterCreator.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
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

/// One keyword of each kind, so that a walk has to find its way past all of them. All numbers have so few digits that
/// the formatted form holds them exactly.
struct SampleCase
{
    explicit SampleCase(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const int number = static_cast<int>(i) * 7919 - 3000000;
            reals.array().push_back(static_cast<float>(number % 100000) * 0.25F);
            doubles.array().push_back(number * 1.0e12);
            indexes.array().push_back(number);
            flags.array().push_back(number % 2 == 0 ? 1 : 0);
            names.array().push_back(std::to_string(i));
            words.array().push_back(std::string(i % 20, 'x') + std::to_string(i));
        }
    }

    bool writeTo(MorvaneWriter& writer)
    {
        return writer.writeKeyword(reals) && writer.writeKeyword(flags) && writer.writeKeyword(names) &&
               writer.writeKeyword(words) && writer.writeKeyword(doubles) && writer.writeKeyword(indexes) &&
               writer.endWrite();
    }

    KeywordTmpl<1> reals{"REALS"};
    KeywordTmpl<3> flags{"FLAGS"};
    KeywordCHAR names{"NAMES"};
    KeywordTmpl<6> words{"WORDS"};
    KeywordTmpl<0> doubles{"DOUBLES"};
    CellIndexes indexes{"INDEXES"};
};

template <class Record>
void expectReadsBack(MorvaneReader& reader, const Record& written)
{
    SCOPED_TRACE(written.name());
    KeywordHeader header;
    ASSERT_TRUE(reader.readNextKeywordHeader(header));
    EXPECT_EQ(header.name(), written.name());
    EXPECT_EQ(header.size(), std::ssize(written.array()));
    EXPECT_EQ(header.valueType(), written.valueType());
    EXPECT_EQ(header.valueTypeInfo().intData(), written.valueTypeInfo().intData());
    Record record(header);
    ASSERT_TRUE(reader.readData(record));
    EXPECT_EQ(record.array(), written.array());
}

} // namespace

TEST(KeywordRoundTrip, EveryKindInBothFormsAtTheEdgesOfBlocks)
{
    const TempDir dir;
    for (const auto form : {MorvaneWriterCreator::Unformatted, MorvaneWriterCreator::Formatted}) {
        for (const std::size_t count : {1U, 105U, 106U, 999U, 1000U, 1001U, 2003U}) {
            SCOPED_TRACE(count);
            SampleCase sample(count);
            const auto writer = MorvaneWriterCreator::create(dir.file("CASE").c_str(), form);
            ASSERT_TRUE(sample.writeTo(*writer));
            const auto reader =
                MorvaneReaderUtils::createAndInitReader(dir.file("CASE"), form == MorvaneWriterCreator::Formatted);
            ASSERT_NE(reader, nullptr);
            expectReadsBack(*reader, sample.reals);
            expectReadsBack(*reader, sample.flags);
            expectReadsBack(*reader, sample.names);
            expectReadsBack(*reader, sample.words);
            expectReadsBack(*reader, sample.doubles);
            expectReadsBack(*reader, sample.indexes);
            KeywordHeader none;
            EXPECT_FALSE(reader->readNextKeywordHeader(none));
        }
    }
}
