#include "initrestart/read/StepWalk.h"

#include "core/HeaderAt.h"

#include <mrlio/RestartKeywordAccess.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

bool isSeqnum(const KeywordHeader& header)
{
    return header.name() == "SEQNUM";
}

bool isOtherStep(MorvaneReader& reader, const KeywordHeader& header, int seqnum)
{
    if (seqnum < 0 || !isSeqnum(header))
        return false;
    std::vector<int> words;
    return !reader.readDataVector(header, words) || RestartKeywordAccess::getSEQNUM(words) != seqnum;
}

/// Makes the step's first keyword the current one: the last SEQNUM that doesn't stand behind the first row, else the
/// first keyword of the file.
bool goToStep(MorvaneReader& reader, const StepRange& range, KeywordHeader& first)
{
    KeywordHeader header;
    if (!headerAt(reader, range.begin, header))
        return false;
    bool isFound = range.begin == 0;
    if (isFound)
        first = header;
    do {
        if (header.keywordLargePos() > range.firstRow)
            break;
        if (isSeqnum(header)) {
            first = header;
            isFound = true;
        }
    } while (reader.readNextKeywordHeader(header));
    if (!isFound || isOtherStep(reader, first, range.seqnum))
        return false;
    reader.setCurrentHeader(first);
    return true;
}

} // namespace

void walkStep(MorvaneReader& reader, const StepRange& range, const KeywordVisitor& visit)
{
    KeywordHeader header;
    if (!goToStep(reader, range, header))
        return;
    do {
        if (!visit(reader, header))
            return;
    } while (reader.readNextKeywordHeader(header) && !isSeqnum(header));
}

} // namespace Kvt::Mrl::MrlIO
