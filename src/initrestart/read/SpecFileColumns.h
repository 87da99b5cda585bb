#pragma once

#include "initrestart/read/SpecData.h"

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Takes the columns of the tables from an index file, and the names of the grids that they belong to.
class SpecFileColumns
{
public:
    explicit SpecFileColumns(SpecData& data) : data_(data) {}

    /// Adds what the keyword holds to the current table; other keywords are left alone.
    /// throws   RestartReaderException "Error reading " and the keyword's name
    void take(MorvaneReader& reader, const KeywordHeader& header);

private:
    void takeTypes(MorvaneReader& reader, const KeywordHeader& header, std::vector<int>& types);
    void takeLgrName(MorvaneReader& reader, const KeywordHeader& header);

    SpecData& data_;
    std::vector<std::string> texts_; // what TYPE or LGRNAME held last, kept for their memory
};

} // namespace Kvt::Mrl::MrlIO
