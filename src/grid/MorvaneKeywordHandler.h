#pragma once

#include <mrlio/KeywordHeader.h>

#include <string>

/// \file
/// What a dispatcher does with a keyword of each kind.

namespace Kvt::Mrl::MrlIO {

template <class Dispatcher>
class IMorvaneKeywordHandler
{
public:
    virtual ~IMorvaneKeywordHandler() = default;

    virtual void handleKeyword(Dispatcher& dispatcher, const KeywordHeader& header) const = 0;
};

/// Hands a keyword to the dispatcher as the given record: with its data, once number and type of the items are found to
/// be right, if their number is fixed; otherwise as it is.
template <class Dispatcher, class Record>
class MorvaneKeywordHandler : public IMorvaneKeywordHandler<Dispatcher>
{
public:
    void handleKeyword(Dispatcher& dispatcher, const KeywordHeader& header) const override
    {
        Record record(header);
        if (Record::getKeywordArraySize() < 0)
            dispatcher.processKeyword(record);
        else
            handleWithData(dispatcher, record);
    }

private:
    static void handleWithData(Dispatcher& dispatcher, Record& record)
    {
        const std::string& name = Record::getKeywordName();
        if (record.size() != Record::getKeywordArraySize())
            dispatcher.logError("Incorrect number of items specified in the header of keyword " + name);
        else if (record.valueType() != Record::getKeywordValueType())
            dispatcher.logError("Incorrect data type specified in the header of keyword " + name);
        else if (!dispatcher.readData(record))
            dispatcher.logError("Failed to parse keyword " + name);
        else
            dispatcher.processKeyword(record);
    }
};

} // namespace Kvt::Mrl::MrlIO
