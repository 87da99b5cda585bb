#pragma once

#include "support/TempDir.h"

#include <mrlio/IGridPropertyArray.h>
#include <mrlio/IMSWSegmentData.h>
#include <mrlio/IRestartHeaderInfo.h>
#include <mrlio/IWellConnectionArray.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/SpecStatsData.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// \file
/// What the tests of the init and restart writers hand over, and how they look at the files.

namespace MrlIOTest {

namespace Mrl = Kvt::Mrl::MrlIO;

/// Cell values that lie in memory. It throws at `badCell`.
template <class T>
struct Cells : Mrl::IGridPropertyArray<T>
{
    Cells(std::vector<T> matrixValues, std::vector<T> fractureValues = {})
        : matrix(std::move(matrixValues)),
          fracture(std::move(fractureValues))
    {}

    int size() const override { return static_cast<int>(matrix.size()); }

    T getValue(int cell) const override
    {
        if (cell == badCell)
            throw std::out_of_range("bad cell");
        return matrix.at(static_cast<std::size_t>(cell));
    }

    T getFractureValue(int cell) const override { return fracture.at(static_cast<std::size_t>(cell)); }

    bool isDualPorosity() const override { return !fracture.empty(); }

    std::vector<T> matrix;
    std::vector<T> fracture;
    int badCell = -1;
};

/// first, first + 1 and so on.
template <class T>
std::vector<T> count(T first, int size)
{
    std::vector<T> values;
    for (int i = 0; i < size; ++i)
        values.push_back(first + static_cast<T>(i));
    return values;
}

struct Connections : Mrl::IWellConnectionArray
{
    struct One
    {
        Mrl::GridCellCoordinates cell;
        std::string lgr = {};
        Mrl::GridCellCoordinates lgrCell = {};
        bool open = true;
    };

    explicit Connections(std::vector<One> connections) : all(std::move(connections)) {}

    const One& at(int i) const { return all.at(static_cast<std::size_t>(i)); }

    int size() const override { return static_cast<int>(all.size()); }

    Mrl::GridCellCoordinates getCell(int i) const override { return at(i).cell; }

    std::string getLgrName(int i) const override { return at(i).lgr; }

    Mrl::GridCellCoordinates getLgrCell(int i) const override { return at(i).lgrCell; }

    bool isOpen(int i) const override { return at(i).open; }

    bool isInLgr(int i) const override { return !at(i).lgr.empty(); }

    std::vector<One> all;
};

/// As many segments as connections, the numbers of both from 1, and one branch.
struct Segments : Mrl::IMSWSegmentData
{
    explicit Segments(int segmentsOfWell) : segments(segmentsOfWell) {}

    bool isSegmented() const override { return true; }

    int connectionCount() const override { return segments; }

    int getConnectionSegment(int i) const override { return i + 1; }

    int segmentCount() const override { return segments; }

    int getUserIndex(int i) const override { return i + 1; }

    int getSegmentFourthValue(int i) const override { return 40 + i; }

    int getSegmentSecondValue(int i) const override { return 20 + i; }

    int branchCount() const override { return 1; }

    int getBranchHead(int) const override { return 7; }

    int segments;
};

/// The same entries for every grid.
struct HeaderEntries : Mrl::IRestartHeaderInfo
{
    void getIntegerHeader(const std::string&, std::map<int, int>& values) const override { values = integers; }

    void getLogicalHeader(const std::string&, std::map<int, bool>&) const override {}

    void getDoubleHeader(const std::string&, std::map<int, double>&) const override {}

    std::map<int, int> integers;
};

/// All keywords of a file, with access by name and place among those of that name.
class KeywordFile
{
public:
    KeywordFile(const std::string& path, bool formatted)
        : reader_(Mrl::MorvaneReaderUtils::createReader(path, formatted))
    {
        if (reader_ == nullptr)
            throw std::runtime_error("cannot open " + path);
        for (Mrl::KeywordHeader header; reader_->readNextKeywordHeader(header);)
            headers_.push_back(header);
    }

    const std::string& fileName() const { return reader_->getFileName(); }

    /// In file order, one blank between two.
    std::string names() const
    {
        std::string names;
        for (const auto& header : headers_)
            names += (names.empty() ? "" : " ") + header.name();
        return names;
    }

    template <class T>
    std::vector<T> values(const std::string& name, std::size_t place = 0)
    {
        for (const auto& header : headers_)
            if (header.name() == name && place-- == 0) {
                std::vector<T> out;
                reader_->readDataVector(header, out);
                return out;
            }
        throw std::runtime_error("no keyword " + name);
    }

    std::size_t occurrences(const std::string& name) const
    {
        return static_cast<std::size_t>(
            std::count_if(headers_.begin(), headers_.end(), [&](const auto& h) { return h.name() == name; }));
    }

    /// Of an index file: the rows of its sections, in order.
    std::vector<Mrl::SpecStatsData> sections()
    {
        std::vector<Mrl::SpecStatsData> result;
        for (std::size_t i = 0; i < occurrences("NAME"); ++i)
            result.push_back({.names = values<std::string>("NAME", i),
                              .types = {},
                              .numbers = values<int>("NUMBER", i),
                              .pointers = values<int>("POINTER", i),
                              .pointersB = values<int>("POINTERB", i),
                              .minima = values<double>("ARRAYMIN", i),
                              .maxima = values<double>("ARRAYMAX", i)});
        return result;
    }

    /// Of a data file: whether each row leads to the header of its array.
    bool hasAll(const std::vector<Mrl::SpecStatsData>& sections) const
    {
        for (const auto& rows : sections)
            for (std::size_t row = 0; row < rows.names.size(); ++row)
                if (!has(rows, row))
                    return false;
        return true;
    }

private:
    bool has(const Mrl::SpecStatsData& rows, std::size_t row) const
    {
        const std::int64_t position = Mrl::KeywordHeader::getLargePos(rows.pointers[row], rows.pointersB[row]);
        return std::any_of(headers_.begin(), headers_.end(), [&](const Mrl::KeywordHeader& header) {
            return header.name() == rows.names[row] && header.size() == rows.numbers[row] &&
                   header.keywordLargePos() == position;
        });
    }

    std::unique_ptr<Mrl::MorvaneReader> reader_;
    std::vector<Mrl::KeywordHeader> headers_;
};

/// Names of all files of a folder, sorted, one blank between two.
inline std::string fileNames(const TempDir& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    std::string result;
    for (const auto& name : names)
        result += (result.empty() ? "" : " ") + name;
    return result;
}

/// The text of the E that an action throws; empty if it throws none, "another exception" for others.
template <class E, class Action>
std::string textOf(Action&& action)
{
    try {
        action();
    } catch (const E& thrown) {
        return thrown.what();
    } catch (...) {
        return "another exception";
    }
    return {};
}

} // namespace MrlIOTest
