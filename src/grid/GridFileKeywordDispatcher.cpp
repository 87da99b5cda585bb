#include <mrlio/GridFileKeywordDispatcher.h>

#include "core/Fail.h"
#include "grid/MorvaneKeywordHandler.h"

#include <map>
#include <memory>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

using Handler = IMorvaneKeywordHandler<GridFileKeywordDispatcher>;
using HandlerTable = std::map<std::string, std::shared_ptr<Handler>>;

template <class Record>
HandlerTable::value_type handlerOf()
{
    return {Record::getKeywordName(), std::make_shared<MorvaneKeywordHandler<GridFileKeywordDispatcher, Record>>()};
}

const HandlerTable& handlerTable()
{
#define MRLIO_GRID_HANDLER(Record, keyword, valueType, count, form) handlerOf<Record>(),
    static const HandlerTable table = {MRLIO_GRID_KEYWORDS(MRLIO_GRID_HANDLER)};
#undef MRLIO_GRID_HANDLER
    return table;
}

} // namespace

GridFileKeywordDispatcher::~GridFileKeywordDispatcher() = default;

void GridFileKeywordDispatcher::processFile(MorvaneReader* reader)
{
    if (reader == nullptr)
        fail<std::invalid_argument>("GridFileKeywordDispatcher::processFile", ": there is no reader");
    reader_ = reader;
    const HandlerTable& table = handlerTable();
    KeywordHeader header;
    while (reader->readNextKeywordHeader(header)) {
        logPushMessageContext(header.name());
        if (const auto row = table.find(header.name()); row != table.end())
            row->second->handleKeyword(*this, header);
        else
            processUnknownKeyword(header);
        logPopMessageContext();
    }
    finalize();
    reader_ = nullptr;
}

MorvaneReader& GridFileKeywordDispatcher::getReader()
{
    if (reader_ == nullptr)
        fail<std::invalid_argument>("GridFileKeywordDispatcher::getReader", ": no file is being processed");
    return *reader_;
}

bool GridFileKeywordDispatcher::readData(KeywordTmpl<ValueType::DOUB>& keyword)
{
    return getReader().readData(keyword);
}

bool GridFileKeywordDispatcher::readData(KeywordTmpl<ValueType::REAL>& keyword)
{
    return getReader().readData(keyword);
}

bool GridFileKeywordDispatcher::readData(KeywordTmpl<ValueType::LOGI>& keyword)
{
    return getReader().readData(keyword);
}

bool GridFileKeywordDispatcher::readData(KeywordCHAR& keyword)
{
    return getReader().readData(keyword);
}

bool GridFileKeywordDispatcher::readData(KeywordINTE& keyword)
{
    return getReader().readData(keyword);
}

// NOLINTBEGIN(bugprone-macro-parentheses): a type takes none
#define MRLIO_GRID_OPERATION(Record, keyword, valueType, count, form)                                                  \
    void GridFileKeywordDispatcher::processKeyword(Record& record)                                                     \
    {                                                                                                                  \
        processKeywordHeader(record);                                                                                  \
    }
// NOLINTEND(bugprone-macro-parentheses)
MRLIO_GRID_KEYWORDS(MRLIO_GRID_OPERATION)
#undef MRLIO_GRID_OPERATION

void GridFileKeywordDispatcher::processKeywordHeader(const KeywordHeader&) {}

void GridFileKeywordDispatcher::processUnknownKeyword(const KeywordHeader&) {}

void GridFileKeywordDispatcher::logPushMessageContext(const std::string&) {}

void GridFileKeywordDispatcher::logPopMessageContext() {}

void GridFileKeywordDispatcher::logError(const std::string&) {}

void GridFileKeywordDispatcher::logWarning(const std::string&) {}

void GridFileKeywordDispatcher::logInfo(const std::string&) {}

void GridFileKeywordDispatcher::logDebug(const std::string&) {}

void GridFileKeywordDispatcher::finalize() {}

} // namespace Kvt::Mrl::MrlIO
