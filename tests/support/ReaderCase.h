#pragma once

#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/SpecStatsData.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace MrlIOTest {

/// What the header arrays of a grid say.
struct GridHead
{
    int nx = 2;
    int ny = 2;
    int nz = 2;
    int active = 8;
    bool dualPorosity = false;
    int day = 1; // of May 2020
    int hour = 6;
    int units = 2;  // FIELD
    int phases = 3; // oil and water
    std::size_t words = 411;

    std::vector<int> intehead() const
    {
        std::vector<int> array(411, 0);
        array[2] = units;
        array[8] = nx;
        array[9] = ny;
        array[10] = nz;
        array[11] = active;
        array[14] = phases;
        array[64] = day;
        array[65] = 5;
        array[66] = 2020;
        array[206] = hour;
        array[207] = 30;
        array[410] = 15250000;
        array.resize(words);
        return array;
    }

    std::vector<int> logihead() const
    {
        std::vector<int> array(15, 0);
        array[14] = dualPorosity ? 1 : 0;
        return array;
    }
};

/// A data file and its index file side by side. As writers leave it, the index lists what solution() adds, and no
/// headers.
class ReaderCase
{
public:
    using Form = KeywordFileBuilder::Form;

    explicit ReaderCase(Form form = KeywordFileBuilder::Binary) : data(form), index(form) {}

    /// The headers of the global grid, in a file without report steps.
    ReaderCase& heads(const GridHead& head, double elapsed = 0.0)
    {
        std::vector<double> doubhead(162, 0.0);
        doubhead[0] = elapsed;
        doubhead[161] = 0.5; // noon
        data.keyword("INTEHEAD", head.intehead()).logicals("LOGIHEAD", head.logihead()).keyword("DOUBHEAD", doubhead);
        return *this;
    }

    /// A report step and the headers of its global grid.
    /// itime   what the index tells of the step besides its number
    ReaderCase& step(int number, const GridHead& head = {}, std::vector<int> itime = {})
    {
        endSection();
        itime.insert(itime.begin(), number);
        index.keyword("TIME", {10.0 * number}).keyword("ITIME", itime);
        data.keyword("SEQNUM", {number});
        return heads(head, 10.0 * number);
    }

    ReaderCase& lgr(const std::string& name, const GridHead& head)
    {
        endSection();
        lgr_ = name;
        gridName(data, "LGR");
        data.keyword("INTEHEAD", head.intehead());
        return *this;
    }

    ReaderCase& endLgr()
    {
        endSection();
        data.keyword("ENDLGR", std::vector<int>());
        lgr_.clear();
        index.keyword("LGRSGONE", std::vector<int>());
        return *this;
    }

    ReaderCase& solution(const std::string& name, const std::vector<float>& values)
    {
        names_.push_back(name);
        numbers_.push_back(static_cast<int>(values.size()));
        pointers_.push_back(static_cast<int>(data.size()));
        data.keyword(name, values);
        return *this;
    }

    /// To be called before the index is written.
    ReaderCase& endSection()
    {
        if (names_.empty())
            return *this;
        if (!lgr_.empty())
            gridName(index, "LGRNAME");
        const std::vector<double> extrema(names_.size(), 0.0);
        index.keyword("NAME", names_).keyword("TYPE", std::vector<std::string>(names_.size(), "REAL"));
        index.keyword("NUMBER", numbers_).keyword("POINTER", pointers_);
        index.keyword("POINTERB", std::vector<int>(names_.size(), 0));
        index.keyword("ARRAYMAX", extrema).keyword("ARRAYMIN", extrema);
        names_.clear();
        numbers_.clear();
        pointers_.clear();
        return *this;
    }

    KeywordFileBuilder data;
    KeywordFileBuilder index;

private:
    void gridName(KeywordFileBuilder& file, const std::string& keyword) const
    {
        if (lgr_.size() > 8)
            file.strings(keyword, static_cast<int>(lgr_.size()), {lgr_});
        else
            file.keyword(keyword, {lgr_});
    }

    std::string lgr_;
    std::vector<std::string> names_;
    std::vector<int> numbers_;
    std::vector<int> pointers_;
};

/// Text keeps some digits of the extrema only.
inline void expectSameTable(const Kvt::Mrl::MrlIO::SpecStatsData& read, const Kvt::Mrl::MrlIO::SpecStatsData& expected)
{
    EXPECT_EQ(read.names, expected.names);
    EXPECT_EQ(read.types, expected.types);
    EXPECT_EQ(read.numbers, expected.numbers);
    EXPECT_EQ(read.pointers, expected.pointers);
    EXPECT_EQ(read.pointersB, expected.pointersB);
    ASSERT_EQ(read.minima.size(), expected.minima.size());
    ASSERT_EQ(read.maxima.size(), expected.maxima.size());
    for (std::size_t row = 0; row < read.minima.size(); ++row) {
        EXPECT_NEAR(read.minima[row], expected.minima[row], 1e-9);
        EXPECT_NEAR(read.maxima[row], expected.maxima[row], 1e-9);
    }
}

} // namespace MrlIOTest
