#pragma once

#include "files/FileStamp.h"
#include "service/XmlDocument.h"
#include "service/XmlWriter.h"

#include <mrlio/service/Directory.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// What tells the caches of one family from those of the others.
struct ContentCacheKind
{
    const char* document;   // the document element, and the last step of its namespace
    const char* cacheClass; // begins the texts in the log
    const char* suffix;     // of the file name, behind the root name of the data file
    int version;
    const char* comment; // warns those who open the file
};

/// A content index that a cache can keep.
class ICachedContent
{
public:
    virtual ~ICachedContent() = default;

    /// Fills the index from the data file.
    virtual void scan() = 0;

    /// Empties the index.
    virtual void clear() = 0;

    /// Adds what stands in the `file` element behind the stamp.
    virtual void writeFileExtras(Service::XML::XmlWriter& /*xml*/) const {}

    /// Writes the sections behind the `file` element.
    virtual void writeSections(Service::XML::XmlWriter& xml) const = 0;

    /// Fills the index from the `file` element and the sections behind it.
    /// False where a section is missing or incomplete; what was filled until then stays.
    virtual bool readSections(Service::XML::XmlElement file) = 0;
};

/// The XML file beside a data file in which its content index is kept.
class ContentCache
{
public:
    ContentCache(const ContentCacheKind& kind, const Service::FileName& dataFile);

    /// Takes the content from the cache. False if there is none, or it belongs to another version, another file or
    /// another state of the file.
    /// throws   MrlIOException if the cache isn't well-formed, boost::bad_lexical_cast if a text stands in place of a
    ///          number, and what `content` throws
    bool load(ICachedContent& content) const;

    /// Writes the cache, with the stamp that the data file had when this object was made: a file that has grown since
    /// makes it stale at once. The new cache takes the old one's place in one step.
    /// False, with a line in the log, if it can't be written.
    bool save(const ICachedContent& content) const;

    /// Removes a case's cache. Never fails: what goes wrong is logged.
    static void flush(const ContentCacheKind& kind, const Service::Directory& directory, const std::string& root);

private:
    bool isOf(Service::XML::XmlElement file) const;
    void write(const ICachedContent& content, const std::string& fileName) const;

    const ContentCacheKind& kind_;
    Service::FileName dataFile_;
    Service::FileName cacheFile_;
    FileStamp stamp_;
    bool hasStamp_; // filling the stamp, so behind it
};

/// Fills an index, from its cache or else by a scan, which renews the cache. If that throws, the index is emptied.
/// setUsesCache   is told which of the two it is, ahead of it
void buildContentIndex(const ContentCacheKind& kind, const Service::FileName& dataFile, ICachedContent& content,
                       void (*setUsesCache)(bool));

} // namespace Kvt::Mrl::MrlIO
