#include "initrestart/write/IndexLeader.h"

#include "initrestart/HeaderPositions.h"

#include <mrlio/KeywordTmpl.h>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Itime = HeaderPositions::Itime;

std::vector<int> timeWords(const RestartClock& clock, bool formatted)
{
    const Service::Time& time = clock.currentTime();
    std::vector<int> words(Itime::size, HeaderPositions::unsetWord);
    words[Itime::reportStep] = clock.reportStep();
    words[Itime::day] = time.GetDay();
    words[Itime::month] = time.GetMonth();
    words[Itime::year] = time.GetYear();
    words[Itime::isZero] = 0;
    words[Itime::formatted] = formatted ? 1 : 0;
    words[Itime::hour] = time.GetHour();
    words[Itime::minute] = time.GetMinute();
    words[Itime::microseconds] = microsecondsOfMinute(time);
    return words;
}

} // namespace

void writeIndexHeader(KeywordWriter& writer, const std::vector<int>& integers)
{
    writer.write(KeywordINTE("INTEHEAD", integers));
}

void writeIndexTime(KeywordWriter& writer, const RestartClock& clock, UnitSystemType::Enum units, bool formatted)
{
    const double elapsed = timeFactor(units) * clock.elapsedDays();
    writer.write(KeywordTmpl<ValueType::DOUB>("TIME", {elapsed}));
    writer.write(KeywordINTE("ITIME", timeWords(clock, formatted)));
}

} // namespace Kvt::Mrl::MrlIO
