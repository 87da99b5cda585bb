#include "dumpflux/DumpfluxWriterImpl.h"

#include "dumpflux/DumpfluxBlockWells.h"
#include "dumpflux/DumpfluxLayout.h"
#include "dumpflux/ReserveClaimed.h"
#include "files/Extensions.h"
#include "files/OutputDirectory.h"

#include <mrlio/KeywordTmpl.h>
#include <mrlio/service/Log.h>

#include <exception>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Layout = DumpfluxLayout;
using DoubleKeyword = KeywordTmpl<ValueType::DOUB>;

/// Makes the file with all that stands in front of the first time range, or leaves none.
std::unique_ptr<DumpfluxWriterFile> makeFile(const Service::FileName& name, const DumpfluxHeaderSource& source,
                                             bool formatted)
{
    try {
        const DumpfluxHeaderKeywords keywords(source);
        auto file = std::make_unique<DumpfluxWriterFile>(name, formatted);
        file->append([&](KeywordWriter& out) { keywords.write(out); });
        return file;
    } catch (const std::invalid_argument&) {
        throw;
    } catch (...) {
        throw std::invalid_argument("Unable to write time-invariant header information");
    }
}

std::vector<DoubleKeyword> fetchProperties(const IDumpfluxPropertiesArray& properties,
                                           const std::vector<std::string>& names, const DumpfluxPropertyRules& rules)
{
    const int length = rules.length();
    std::vector<DoubleKeyword> keywords;
    keywords.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const IDumpfluxPropertyArray& property = properties.get(static_cast<int>(i));
        rules.checkLength(property); // again, since it may have shrunk in the meantime
        std::vector<double>& values = keywords.emplace_back(names[i]).array();
        reserveClaimed(values, length);
        for (int k = 0; k < length; ++k)
            values.push_back(property.getValue(k));
    }
    return keywords;
}

void writeTimes(KeywordWriter& out, const DumpfluxTimeSpec& timeSpec)
{
    std::vector<int> integers(Layout::IntTime::size, 0);
    integers[Layout::IntTime::reportNumber] = timeSpec.getReportNumber();
    out.write(KeywordINTE(Layout::ITIME, integers));

    std::vector<double> doubles(Layout::DoubTime::size, 0.0);
    doubles[Layout::DoubTime::start] = timeSpec.getStartTime();
    doubles[Layout::DoubTime::end] = timeSpec.getEndTime();
    doubles[Layout::DoubTime::averagePressure] = timeSpec.getAverageReservoirPressure();
    doubles[Layout::DoubTime::averageRs] = timeSpec.getAverageReservoirRs();
    doubles[Layout::DoubTime::averageRv] = timeSpec.getAverageReservoirRv();
    out.write(DoubleKeyword(Layout::DTIME, doubles));
}

} // namespace

void DumpfluxWriterImpl::open(const std::string& directory, const std::string& rootName,
                              const DumpfluxHeaderSource& source, bool formatted)
{
    close();
    propertyRules_ = {};
    timeRanges_ = {};
    const Service::FileName name =
        outputFile(outputDirectory(directory), rootName, extensions::ofNewFile(extensions::dumpflux, formatted), false);
    if (name.FileExists())
        failDumpfluxFileExists(name);
    connectionCount(source.connections);
    file_ = makeFile(name, source, formatted);
    const bool isCompositional = source.header.getSimulatorType() == Core::Keywords::SimulatorType::MB30;
    componentsPerWell_ = isCompositional ? source.header.getNumberComponents() : 0;
}

void DumpfluxWriterImpl::write(const DumpfluxTimeSpec& timeSpec, const IDumpfluxPropertiesArray& properties,
                               const IDumpfluxWellDataArray& wells)
{
    requireOpen();
    std::vector<std::string> names = propertyRules_.check(properties);
    const DumpfluxBlockWells blockWells(wells, componentsPerWell_);
    timeRanges_.check(timeSpec);
    const std::vector<DoubleKeyword> keywords = fetchProperties(properties, names, propertyRules_);
    requireOpen(); // still, since the arrays are the caller's code

    timeRanges_.add(timeSpec); // first, since nothing may fail once the block is written
    try {
        file_->append([&](KeywordWriter& out) {
            writeTimes(out, timeSpec);
            for (const DoubleKeyword& keyword : keywords)
                out.write(keyword);
            blockWells.write(out);
        });
    } catch (...) {
        timeRanges_.removeLast();
        throw;
    }
    propertyRules_.accept(std::move(names));
}

void DumpfluxWriterImpl::requireOpen() const
{
    if (!file_)
        throw std::invalid_argument("No dumpflux file is open");
}

void DumpfluxWriterImpl::close() noexcept
{
    try {
        if (file_ && !file_->close())
            Service::Log::SendLogMessage(("Problem closing file: " + file_->name().GetFullName()).c_str(),
                                         Service::SeverityError);
    } catch (const std::exception&) {
        // There is no memory even for the text.
    }
    file_.reset();
}

} // namespace Kvt::Mrl::MrlIO
