#include "summary/SummaryFileIndexer.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <algorithm>

namespace Kvt::Mrl::MrlIO {

namespace {

int numberOf(const std::string& name)
{
    std::string extension;
    return FileIdentifiers::Summary::extractIndex(name, extension);
}

} // namespace

SummaryFileIndexer::SummaryFileIndexer(const std::vector<std::string>& files)
{
    if (files.size() == 1)
        unifiedName_ = Service::FileName(files.front()).GetFileName();
    for (const std::string& file : files) {
        if (unifiedName_.empty() || !FileIdentifiers::Summary::isUnified(file))
            highestNumber_ = std::max<std::int64_t>(highestNumber_, numberOf(file));
    }
}

bool SummaryFileIndexer::isKnown(const std::string& name) const
{
    if (!unifiedName_.empty() && FileIdentifiers::Summary::isUnified(name))
        return name == unifiedName_;
    const int number = numberOf(name);
    return number > 0 && number <= highestNumber_ + 1;
}

} // namespace Kvt::Mrl::MrlIO
