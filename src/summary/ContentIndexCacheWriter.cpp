#include "summary/ContentIndexCacheWriter.h"

#include "service/Text.h"
#include "service/XmlWriter.h"
#include "summary/ContentIndexCacheNames.h"

#include <mrlio/service/Log.h>

#include <exception>
#include <set>

namespace Kvt::Mrl::MrlIO {

namespace {

/// Report steps of one case stand in the order of their extensions, so S0002 behind S0001.
struct ByExtensionWithinCase
{
    bool operator()(const Service::FileName& left, const Service::FileName& right) const
    {
        if (left.GetRootName() != right.GetRootName() || left.GetDirectory() != right.GetDirectory())
            return left < right;
        if (Service::FileName::IsCaseSensitive())
            return left.GetExtension() < right.GetExtension();
        return Service::NoCaseStringLess(left.GetExtension(), right.GetExtension());
    }
};

using FileSet = std::set<Service::FileName, ByExtensionWithinCase>;

FileSet filesOf(const SummaryReportSteps& reportSteps)
{
    FileSet files;
    const Service::FileName* last = nullptr;
    for (const auto& reportStep : reportSteps) {
        const Service::FileName& name = reportStep->fileName();
        if (&name != last)
            files.insert(name);
        last = &name;
    }
    return files;
}

void writeFile(Service::XML::XmlWriter& xml, const Service::FileName& file, const FileStamps& stamps)
{
    FileStamp stamp;
    const std::string name = file.GetFileName();
    if (const auto taken = stamps.find(name); taken != stamps.end())
        stamp = taken->second;
    else
        FileStamp::read(file, stamp);
    xml.startElement(CacheNames::file);
    xml.textElement(CacheNames::fileName, name);
    xml.startElement(CacheNames::fileStamp);
    FileStamp::forEachNumber(stamp, [&xml](const char* element, auto number) { xml.textElement(element, number); });
    xml.endElement();
    xml.endElement();
}

void writeReportStep(Service::XML::XmlWriter& xml, const SummaryReportStepInfo& reportStep)
{
    xml.startElement(CacheNames::reportStep);
    xml.textElement(CacheNames::fileName, reportStep.fileName().GetFileName());
    for (const auto& miniStep : reportStep.miniSteps()) {
        xml.startElement(CacheNames::miniStep);
        xml.textElement(CacheNames::number, miniStep->number());
        xml.textElement(CacheNames::offset, static_cast<std::int64_t>(std::streamoff(miniStep->position())));
        xml.endElement();
    }
    xml.endElement();
}

void write(const Service::FileName& cache, int numVectors, const SummaryReportSteps& reportSteps,
           const FileStamps& stamps)
{
    const FileSet files = filesOf(reportSteps);
    Service::XML::XmlWriter xml(cache.GetFullName(), CacheNames::document, CacheNames::namespaceUri);
    xml.comment(CacheNames::warning);
    xml.textElement(CacheNames::version, CacheNames::currentVersion);
    xml.textElement(CacheNames::numVectors, numVectors);
    xml.startElement(CacheNames::files);
    for (const Service::FileName& file : files)
        writeFile(xml, file, stamps);
    xml.endElement();
    xml.startElement(CacheNames::contentIndex);
    for (const auto& reportStep : reportSteps)
        writeReportStep(xml, *reportStep);
    xml.endElement();
    xml.finish();
}

} // namespace

bool saveContentIndex(const Service::FileName& cache, int numVectors, const SummaryReportSteps& reportSteps,
                      const FileStamps& stamps)
{
    try {
        write(cache, numVectors, reportSteps, stamps);
        return true;
    } catch (const std::exception&) {
        const std::string text = "SummaryContentIndexCache: cannot create content cache file " + cache.GetFullName();
        Service::Log::SendLogMessage(text.c_str(), Service::SeverityWarning);
        return false;
    }
}

} // namespace Kvt::Mrl::MrlIO
