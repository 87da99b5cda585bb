#include "wellresults/ContentCache.h"

#include "core/Fail.h"
#include "service/Delegates.h"
#include "service/FileUtils.h"
#include "service/XmlInitialise.h"
#include "wellresults/CacheText.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/service/Log.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <unistd.h>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::XML::XmlElement;
using Service::XML::XmlWriter;

constexpr const char* versionElement = "version";
constexpr const char* fileElement = "file";
constexpr const char* fileNameElement = "fileName";
constexpr const char* fileStampElement = "fileStamp";

Service::FileName cacheFileOf(const ContentCacheKind& kind, const std::string& directory, const std::string& root)
{
    Service::FileName name;
    name.SetFileName(root + kind.suffix);
    name.SetDirectory(directory);
    return name;
}

void warn(const std::string& text)
{
    Service::Log::SendLogMessage(text.c_str(), Service::SeverityWarning);
}

/// Leaves the document empty if another thread or process has just removed the cache.
void parse(const ContentCacheKind& kind, const std::string& fileName, Service::XML::XmlDocument& document)
{
    Service::XML::Initialise::Init();
    Service::XML::ParserErrorHandler errors;
    if ((document.parse(fileName, errors) && !errors.getSawErrors()) || document.isFileMissing())
        return;
    const std::string& fatal = errors.getLastFatalError();
    fail<MrlIOException>(kind.cacheClass, "::load: cannot read content cache file ", fileName, ": ",
                         fatal.empty() ? errors.getLastError() : fatal);
}

/// A name beside the cache that no other thread or process uses.
std::string temporaryName(const std::string& fileName)
{
    static std::atomic<unsigned> count = 0;
    return fileName + "." + std::to_string(getpid()) + "." + std::to_string(++count) + ".new";
}

} // namespace

ContentCache::ContentCache(const ContentCacheKind& kind, const Service::FileName& dataFile)
    : kind_(kind),
      dataFile_(dataFile),
      cacheFile_(cacheFileOf(kind, dataFile.GetDirectory(), dataFile.GetRootName())),
      hasStamp_(FileStamp::read(dataFile, stamp_))
{}

bool ContentCache::load(ICachedContent& content) const
{
    if (!hasStamp_ || !cacheFile_.IsFile())
        return false;
    Service::XML::XmlDocument document;
    parse(kind_, cacheFile_.GetFullName(), document);
    const XmlElement version = document.root().firstChild();
    int number = 0;
    if (version.name() != versionElement || !version.readInteger(number) || number != kind_.version)
        return false;
    const XmlElement file = version.next();
    return file.name() == fileElement && isOf(file) && content.readSections(file);
}

/// The length is taken as an int, as ever: the cache of a file of 2 GiB or more fails here until it is removed. So it
/// mustn't be looked at before the name, or the cache of a large file would close its formatted sister too.
bool ContentCache::isOf(XmlElement file) const
{
    if (file.child(fileNameElement).text() != toCacheText(dataFile_.GetFileName()))
        return false;
    const XmlElement stored = file.child(fileStampElement);
    const auto agrees = [&stored](const char* name, std::int64_t present) {
        const XmlElement number = stored.child(name);
        return number && numberOf<int>(number.text()) == present;
    };
    return agrees("length", stamp_.length) && agrees("second", stamp_.second) && agrees("minute", stamp_.minute) &&
           agrees("hour", stamp_.hour) && agrees("day", stamp_.day) && agrees("month", stamp_.month) &&
           agrees("year", stamp_.year);
}

bool ContentCache::save(const ICachedContent& content) const
{
    const std::string fileName = cacheFile_.GetFullName();
    const std::string temporary = temporaryName(fileName);
    try {
        if (!hasStamp_)
            throw std::runtime_error("the data file has no stamp");
        write(content, temporary);
        if (std::rename(temporary.c_str(), fileName.c_str()) == 0)
            return true;
        std::remove(temporary.c_str());
    } catch (const std::exception&) {
        // The writer has removed its file.
    }
    warn(kind_.cacheClass + std::string(": cannot create content cache file ") + fileName);
    return false;
}

void ContentCache::write(const ICachedContent& content, const std::string& fileName) const
{
    XmlWriter xml(fileName, kind_.document, std::string("http://kvt.example/Mrl/MrlIO/") + kind_.document);
    xml.comment(kind_.comment);
    xml.textElement(versionElement, kind_.version);
    xml.startElement(fileElement);
    xml.textElement(fileNameElement, toCacheText(dataFile_.GetFileName()));
    xml.startElement(fileStampElement);
    FileStamp::forEachNumber(stamp_, [&xml](const char* name, auto number) { xml.textElement(name, number); });
    xml.endElement();
    content.writeFileExtras(xml);
    xml.endElement();
    content.writeSections(xml);
    xml.finish();
}

void ContentCache::flush(const ContentCacheKind& kind, const Service::Directory& directory, const std::string& root)
{
    try {
        const Service::FileName cacheFile = cacheFileOf(kind, directory.Name(), root);
        if (cacheFile.IsFile())
            Service::FileUtils::Remove(cacheFile);
    } catch (const std::exception&) {
        warn(kind.cacheClass + std::string(": content cache file can not be removed"));
    }
}

void buildContentIndex(const ContentCacheKind& kind, const Service::FileName& dataFile, ICachedContent& content,
                       void (*setUsesCache)(bool))
{
    Service::DelegateBase guard(Service::onDestruction(content, &ICachedContent::clear));
    const ContentCache cache(kind, dataFile);
    setUsesCache(true);
    if (!cache.load(content)) {
        setUsesCache(false);
        content.scan();
        cache.save(content);
    }
    guard.Disarm();
}

} // namespace Kvt::Mrl::MrlIO
