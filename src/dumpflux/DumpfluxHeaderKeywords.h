#pragma once

#include <mrlio/DumpfluxHeaderData.h>
#include <mrlio/GridSpec.h>
#include <mrlio/IDumpfluxConnectionArray.h>
#include <mrlio/KeywordTmpl.h>
#include <mrlio/KeywordWriter.h>

namespace Kvt::Mrl::MrlIO {

/// What a dumpflux file tells once. Not owned.
struct DumpfluxHeaderSource
{
    const DumpfluxHeaderData& header;
    const GridSpec& grid;
    const IDumpfluxConnectionArray& connections;
};

/// How many connections there are.
/// throws   std::invalid_argument if there are none
int connectionCount(const IDumpfluxConnectionArray& connections);

/// The keywords in front of the first time range.
class DumpfluxHeaderKeywords
{
public:
    /// Asks for everything, so that nothing but the file itself can fail afterwards.
    /// throws   std::invalid_argument for units without a code, or without connections; whatever the connections throw
    explicit DumpfluxHeaderKeywords(const DumpfluxHeaderSource& source);

    void write(KeywordWriter& out) const;

private:
    KeywordCHAR fluxType_;
    KeywordCHAR restart_;
    KeywordINTE restartNumber_;
    KeywordINTE integers_;
    KeywordTmpl<ValueType::LOGI> logicals_;
    KeywordTmpl<ValueType::DOUB> doubles_;
    KeywordINTE connections_;
};

} // namespace Kvt::Mrl::MrlIO
