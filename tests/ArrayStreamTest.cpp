#include "initrestart/write/SolutionArray.h"
#include "support/CellArrays.h"
#include "support/KeywordFileBuilder.h"

#include <mrlio/KeywordWriter.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::CellArray;
using MrlIOTest::KeywordFileBuilder;
using MrlIOTest::numbersFrom;

namespace {

/// Writes one array in pieces, and gives its bytes. The row goes to `rows`.
template <class T>
std::string written(bool formatted, unsigned count, const std::vector<CellArray<T>>& pieces, SpecStatsData& rows)
{
    std::ostringstream out;
    const auto array = makeSolutionArray<T>(formatted);
    array->start(out, "ARRAY", count);
    for (const CellArray<T>& piece : pieces)
        array->write(out, piece);
    array->finish(out, rows);
    return out.str();
}

template <class T>
std::string written(bool formatted, unsigned count, const std::vector<CellArray<T>>& pieces)
{
    SpecStatsData ignored;
    return written(formatted, count, pieces, ignored);
}

template <class T>
std::vector<CellArray<T>> cut(const std::vector<T>& values, const std::vector<std::size_t>& lengths)
{
    std::vector<CellArray<T>> pieces;
    auto from = values.begin();
    for (const std::size_t length : lengths) {
        const auto to = from + static_cast<std::ptrdiff_t>(length);
        pieces.emplace_back(std::vector<T>(from, to));
        from = to;
    }
    return pieces;
}

template <class Keyword>
std::string writtenWhole(const Keyword& keyword)
{
    std::ostringstream out;
    KeywordWriter(out, true, Service::FileName()).write(keyword);
    return out.str();
}

std::string errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "nothing thrown";
}

} // namespace

TEST(ArrayStream, FormattedPiecesJoinOnTheLines)
{
    EXPECT_EQ(written<int>(true, 12, cut(numbersFrom(1, 12), {7, 5})),
              " 'ARRAY   '          12 'INTE'\n"
              "           1           2           3           4           5           6\n"
              "           7           8           9          10          11          12\n");

    // Lines end with the blocks of the whole array, wherever the pieces end.
    const auto reals = numbersFrom(0.5f, 3007);
    const auto lengths = std::vector<std::size_t>{0, 999, 2, 1, 998, 1000, 0, 7};
    EXPECT_EQ(written<float>(true, 3007, cut(reals, lengths)), writtenWhole(KeywordTmpl<1>("ARRAY", reals)));
    const std::vector<std::string> texts(213, "TEXT");
    EXPECT_EQ(written<std::string>(true, 213, cut(texts, {104, 1, 3, 105})), writtenWhole(KeywordCHAR("ARRAY", texts)));
}

TEST(ArrayStream, UnformattedPiecesOpenTheirOwnRecords)
{
    const auto values = numbersFrom(1.0, 9003);
    KeywordFileBuilder expected;
    expected.header("ARRAY", 5, "DOUB");
    std::string record;
    for (std::size_t i = 0; i < values.size(); ++i) {
        record += KeywordFileBuilder::element(values[i]);
        const bool pieceEnds = i == 2 || i == 9002;
        if (record.size() == 8000 || pieceEnds) {
            expected.record(record);
            record.clear();
        }
    }
    EXPECT_EQ(written<double>(false, 5, cut(values, {3, 0, 9000})), expected.bytes());
}

TEST(ArrayStream, BothPorositiesMakeOneRunOfRecords)
{
    std::vector<int> values = numbersFrom(1, 1402);
    const CellArray<int> both(std::vector<int>(values.begin(), values.begin() + 701),
                              std::vector<int>(values.begin() + 701, values.end()));
    EXPECT_EQ(solutionArrayCount("ARRAY", both), 1402);
    EXPECT_EQ(written<int>(false, 1402, {both}), KeywordFileBuilder().keyword("ARRAY", values).bytes());
    EXPECT_EQ(written<int>(true, 1402, {both}), writtenWhole(KeywordINTE("ARRAY", values)));

    const CellArray<std::string> texts(std::vector<std::string>(60, "M"), std::vector<std::string>(60, "LONGERTHAN8"));
    std::vector<std::string> flat(120, "M");
    std::fill(flat.begin() + 60, flat.end(), "LONGERTH");
    EXPECT_EQ(written<std::string>(false, 120, {texts}), KeywordFileBuilder().keyword("ARRAY", flat).bytes());
}

TEST(ArrayStream, RowsTellPlaceAndExtremaOfAllPieces)
{
    std::ostringstream out;
    out << "in front";
    SpecStatsData rows;
    const auto array = makeSolutionArray<int>(false);
    array->start(out, "FIRST", 4);
    array->write(out, CellArray<int>({5, 7}));
    array->write(out, CellArray<int>({6}, {-3}));
    array->finish(out, rows);
    const auto second = static_cast<int>(out.str().size());
    makeSolutionArray<int>(false)->start(out, "SECOND", 0);
    array->start(out, "SECOND", 0);
    array->finish(out, rows);
    EXPECT_EQ(rows.names, (std::vector<std::string>{"FIRST", "SECOND"}));
    EXPECT_EQ(rows.types, (std::vector<int>{ValueType::INTE, ValueType::INTE}));
    EXPECT_EQ(rows.numbers, (std::vector<int>{4, 0}));
    EXPECT_EQ(rows.pointers, (std::vector<int>{8, second + 24}));
    EXPECT_EQ(rows.pointersB, (std::vector<int>{0, 0}));
    EXPECT_EQ(rows.minima, (std::vector<double>{-3, 0}));
    EXPECT_EQ(rows.maxima, (std::vector<double>{7, 0}));
}

TEST(ArrayStream, NotANumberCountsInTheFirstPlaceOnly)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    SpecStatsData rows;
    written<float>(false, 4, cut<float>({2, nan, 1, nan}, {1, 3}), rows);
    written<float>(false, 2, cut<float>({nan, 1}, {1, 1}), rows);
    written<std::string>(false, 1, {CellArray<std::string>({"9"})}, rows);
    EXPECT_EQ(rows.minima[0], 1);
    EXPECT_EQ(rows.maxima[0], 2);
    EXPECT_TRUE(std::isnan(rows.minima[1]) && std::isnan(rows.maxima[1]));
    EXPECT_EQ(rows.minima[2], 0);
    EXPECT_EQ(rows.maxima[2], 0);
}

TEST(ArrayStream, RefusesWhatWouldMakeAnUnreadableFile)
{
    std::ostringstream out;
    SpecStatsData rows;
    const auto array = makeSolutionArray<float>(true);
    EXPECT_THROW(array->write(out, CellArray<float>({1})), std::invalid_argument);
    EXPECT_THROW(array->finish(out, rows), std::invalid_argument);
    EXPECT_THROW(array->start(out, "ARRAY", 2147483648u), std::invalid_argument);
    EXPECT_EQ(out.str(), "");
    array->start(out, "ARRAY", 2147483647u);
    const std::string header = out.str();
    EXPECT_THROW(array->write(out, CellArray<double>({1})), std::invalid_argument);
    EXPECT_THROW(array->write(out, CellArray<std::string>({"1"})), std::invalid_argument);
    EXPECT_EQ(out.str(), header);

    auto huge = CellArray<int>({}, {}).claimSize(1073741824);
    EXPECT_THROW(solutionArrayCount("ARRAY", huge), std::invalid_argument);
    EXPECT_EQ(solutionArrayCount("ARRAY", huge.claimSize(1073741823)), 2147483646);
    EXPECT_THROW(solutionArrayCount("ARRAY", huge.claimSize(-1)), std::invalid_argument);
}

TEST(ArrayStream, TellsOfStreamsAndArraysThatFail)
{
    const std::string text = "A problem was encountered writing the keyword ARRAY to file.";
    for (const bool formatted : {false, true}) {
        std::ostringstream out;
        SpecStatsData rows;
        const auto array = makeSolutionArray<int>(formatted);
        array->start(out, "ARRAY", 3);
        EXPECT_THROW(array->write(out, CellArray<int>({1}).claimSize(2)), std::out_of_range);
        out.setstate(std::ios_base::badbit);
        EXPECT_EQ(errorOf([&] { array->write(out, CellArray<int>({1})); }), text);
        EXPECT_EQ(errorOf([&] { array->finish(out, rows); }), text);
        EXPECT_EQ(errorOf([&] { array->start(out, "ARRAY", 1); }), text);
        EXPECT_TRUE(rows.names.empty());
    }
}
