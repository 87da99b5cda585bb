#pragma once

#include "initrestart/SpecIndexFile.h"
#include "initrestart/read/ITimeInvariantData.h"
#include "initrestart/read/RawDataAccess.h"
#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

namespace MrlIOTest {

/// A file of one step, made by hand, and the index of it.
class StepFile
{
public:
    explicit StepFile(KeywordFileBuilder::Form form = KeywordFileBuilder::Binary) : formatted_(form != 0), content(form)
    {}

    /// A row for the keyword that the content gets next.
    StepFile& row(const std::string& name, Kvt::Mrl::MrlIO::ValueType::Enum type, std::size_t count,
                  const std::string& lgr = {}, double min = 0.0, double max = 0.0)
    {
        Kvt::Mrl::MrlIO::appendRow(index.local(lgr), name, type, static_cast<int>(count), content.size(), min, max);
        return *this;
    }

    /// A row and its keyword: REAL, DOUB, INTE or CHAR by the type of the values.
    template <class T>
    StepFile& add(const std::string& name, const std::vector<T>& values, const std::string& lgr = {})
    {
        row(name, typeOf<T>, values.size(), lgr);
        content.keyword(name, values);
        return *this;
    }

    template <class T>
    StepFile& add(const std::string& name, std::initializer_list<T> values)
    {
        return add(name, std::vector<T>(values));
    }

    std::string path() const { return dir_.file("CASE.X0001"); }

    /// On the content as it is now; the file is written anew.
    Kvt::Mrl::MrlIO::RawDataAccess access() const
    {
        content.writeTo(path());
        return Kvt::Mrl::MrlIO::RawDataAccess(path(), index, formatted_);
    }

private:
    using ValueType = Kvt::Mrl::MrlIO::ValueType;

    template <class T>
    static constexpr ValueType::Enum typeOf = std::is_same_v<T, double>  ? ValueType::DOUB
                                              : std::is_same_v<T, float> ? ValueType::REAL
                                              : std::is_same_v<T, int>   ? ValueType::INTE
                                                                         : ValueType::CHAR;

    bool formatted_;
    TempDir dir_;

public:
    KeywordFileBuilder content;
    Kvt::Mrl::MrlIO::SpecIndexData index;
};

/// Headers by the word of a test: one global grid, and perhaps names of local grids of the same size.
class KnownHeaders : public Kvt::Mrl::MrlIO::ITimeInvariantData, public Kvt::Mrl::MrlIO::ITimeInvariantDataSource
{
public:
    int cells = 0;
    int active = 0;
    bool dualPorosity = false;
    std::vector<std::string> lgrs;

    const ITimeInvariantData& getTimeInvariantData() override { return *this; }

    bool gridDimension(int&, int&, int&, const std::string&) const override { return false; }

    int numCells(const std::string& lgr) const override { return knows(lgr) ? cells : -1; }

    int arraySize(const std::string& lgr) const override { return knows(lgr) ? cells * (dualPorosity ? 2 : 1) : -1; }

    int activeCells(const std::string& lgr) const override { return knows(lgr) ? active : -1; }

    bool hasInactiveCells(const std::string& lgr) const override { return activeCells(lgr) < arraySize(lgr); }

    bool isDualPorosity() const override { return dualPorosity; }

    const std::vector<std::string>& LGRs() const override { return lgrs; }

    Kvt::Mrl::MrlIO::UnitSystemType::Enum unitSystem() const override { return {}; }

    Kvt::Mrl::MrlIO::PhaseType::Enum phases() const override { return {}; }

private:
    bool knows(const std::string& lgr) const
    {
        return lgr.empty() || std::find(lgrs.begin(), lgrs.end(), lgr) != lgrs.end();
    }
};

} // namespace MrlIOTest
