#include "initrestart/read/SpecScan.h"

#include "initrestart/HeaderPositions.h"
#include "initrestart/SpecIndexFile.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/service/Exception.h>

#include <algorithm>
#include <limits>
#include <span>

namespace Kvt::Mrl::MrlIO {

namespace {

using RestartFiles = FileIdentifiers::Restart;

template <class T>
Extrema extremaOf(const std::vector<T>& values)
{
    Extrema extrema;
    extrema.add(std::span<const T>(values));
    return extrema;
}

} // namespace

int checkedCount(const KeywordHeader& header)
{
    if (header.size() > std::numeric_limits<int>::max())
        fail<RestartReaderException>("Cannot handle size of ", header.name());
    return static_cast<int>(header.size());
}

void appendRow(SpecStatsData& rows, const KeywordHeader& header, const Extrema& extrema)
{
    appendRow(rows, header.name(), header.valueType(), checkedCount(header), header.second_keywordLargePos(),
              extrema.min(), extrema.max());
}

void SpecScan::scan(const std::string& fileName)
{
    data_.startStep();
    hasSeqnum_ = false;
    startHeaders();
    KeywordHeader header;
    const auto reader = MorvaneReaderUtils::createReader(fileName, RestartFiles::isFormatted(fileName));
    if (!reader || !reader->readNextKeywordHeader(header))
        fail<RestartReaderException>("Error reading invalid or empty file ", Service::FileName(fileName).GetFullName());
    do
        takeKeyword(*reader, header);
    while (reader->readNextKeywordHeader(header));
    if (!hasSeqnum_)
        takeStepFromName(fileName);
}

void SpecScan::startHeaders()
{
    wantsIntehead_ = true;
    wantsDoubhead_ = true;
}

void SpecScan::takeKeyword(MorvaneReader& reader, const KeywordHeader& header)
{
    checkedCount(header); // before a giant is read
    const Extrema extrema = takeArray(reader, header);
    SpecStatsData& rows = *data_.currentStats();
    if (rows.names.empty())
        reserveRows(rows);
    appendRow(rows, header, extrema);
    latestRowCount_ = rows.names.size();
    if (header.name() == "ENDLGR" || header.name() == "LGRSGONE")
        data_.setCurrentStats(nullptr);
}

/// Steps are much alike, so that a table mostly comes to as many rows as the one before.
void SpecScan::reserveRows(SpecStatsData& rows) const
{
    constexpr std::size_t most = 64;
    const std::size_t count = std::min(latestRowCount_, most);
    rows.names.reserve(count);
    rows.types.reserve(count);
    rows.numbers.reserve(count);
    rows.pointers.reserve(count);
    rows.pointersB.reserve(count);
    rows.minima.reserve(count);
    rows.maxima.reserve(count);
}

Extrema SpecScan::takeArray(MorvaneReader& reader, const KeywordHeader& header)
{
    const std::string& name = header.name();
    if (name == "SEQNUM")
        return takeSeqnum(reader, header);
    if (name == "INTEHEAD")
        return takeIntehead(reader, header);
    if (name == "DOUBHEAD" && wantsDoubhead_)
        return takeDoubhead(reader, header);
    if (name == "LGR")
        return takeLgr(reader, header);
    return arrayExtrema_.read(reader, header);
}

Extrema SpecScan::takeSeqnum(MorvaneReader& reader, const KeywordHeader& header)
{
    data_.startStep();
    readNeededArray(reader, header, integers_);
    data_.currentIndex()->seqnum = RestartKeywordAccess::getSEQNUM(integers_);
    hasSeqnum_ = true;
    startHeaders();
    return extremaOf(integers_);
}

Extrema SpecScan::takeIntehead(MorvaneReader& reader, const KeywordHeader& header)
{
    readFilledArray(reader, header, integers_);
    if (firstIntehead_.empty())
        firstIntehead_ = integers_;
    if (wantsIntehead_) {
        SpecIndexData& step = *data_.currentIndex();
        RestartKeywordAccess::getINTEHEADDate(integers_, step.date);
        step.hasDate = true;
        if (RestartKeywordAccess::getINTEHEADTime(integers_, step.timeOfDay))
            step.hasTime = true;
        wantsIntehead_ = false;
    }
    return extremaOf(integers_);
}

Extrema SpecScan::takeDoubhead(MorvaneReader& reader, const KeywordHeader& header)
{
    readFilledArray(reader, header, doubles_);
    SpecIndexData& step = *data_.currentIndex();
    step.time = doubles_[HeaderPositions::Doubhead::time];
    wantsDoubhead_ = false;
    constexpr std::size_t fewestWords = 4;
    if (step.hasDate && !step.hasTime && firstIntehead_.size() >= fewestWords)
        takeTimeOfDay(step);
    return extremaOf(doubles_);
}

/// The headers of older files have the time of day in DOUBHEAD only.
void SpecScan::takeTimeOfDay(SpecIndexData& step)
{
    const bool lab = RestartKeywordAccess::getINTEHEADUnitSystem(firstIntehead_) == UnitSystemType::LAB;
    try {
        RestartKeywordAccess::getDOUBHEADTime(doubles_, lab, step.timeOfDay);
        step.hasTime = doubles_.size() > HeaderPositions::Doubhead::currentTime;
    } catch (const Service::ServiceException&) {
        // No time of day. The rest of the step is sound.
    }
}

Extrema SpecScan::takeLgr(MorvaneReader& reader, const KeywordHeader& header)
{
    readFilledArray(reader, header, texts_);
    data_.setCurrentStats(&data_.currentIndex()->local(RestartKeywordAccess::getLGRNAME(texts_)));
    return {};
}

void SpecScan::takeStepFromName(const std::string& fileName)
{
    if (const int step = RestartFiles::extractIndex(fileName); step >= 0)
        data_.currentIndex()->seqnum = step;
}

} // namespace Kvt::Mrl::MrlIO
