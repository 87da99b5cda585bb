#include <mrlio/service/PathFilter.h>

#include "service/Text.h"

#include <algorithm>
#include <string_view>

namespace Kvt::Mrl::Core::Service {
namespace {

bool isPrefixAndDigits(std::string_view text, std::string_view prefix, std::uint64_t digits)
{
    if (text.size() < prefix.size() || text.size() - prefix.size() != digits)
        return false;
    const std::string_view number = text.substr(prefix.size());
    return NoCaseStringEqual(text.substr(0, prefix.size()), prefix) &&
           std::all_of(number.begin(), number.end(), isDigit);
}

} // namespace

PathFilter::~PathFilter() = default;

std::shared_ptr<const PathFilter> ExtensionFilter::Create(const std::string& extension)
{
    return std::shared_ptr<const PathFilter>(new ExtensionFilter(extension));
}

ExtensionFilter::ExtensionFilter(const std::string& extension) : extension_(extension) {}

bool ExtensionFilter::Accept(const PathCacheEntry& entry) const
{
    return NoCaseStringEqual(entry.GetExtension(), extension_);
}

std::shared_ptr<const PathFilter> FilenameExactNoCaseFilter::Create(const std::string& rootName)
{
    return std::shared_ptr<const PathFilter>(new FilenameExactNoCaseFilter(rootName));
}

FilenameExactNoCaseFilter::FilenameExactNoCaseFilter(const std::string& rootName) : rootName_(rootName) {}

bool FilenameExactNoCaseFilter::Accept(const PathCacheEntry& entry) const
{
    return NoCaseStringEqual(entry.GetRootName(), rootName_);
}

std::shared_ptr<const PathFilter> NumberedStringExtensionFilter::Create(const std::string& text, std::uint64_t digits)
{
    return std::shared_ptr<const PathFilter>(new NumberedStringExtensionFilter(text, digits));
}

NumberedStringExtensionFilter::NumberedStringExtensionFilter(const std::string& text, std::uint64_t digits)
    : prefix_('.' + text),
      digits_(digits)
{}

bool NumberedStringExtensionFilter::Accept(const PathCacheEntry& entry) const
{
    return isPrefixAndDigits(entry.GetExtension(), prefix_, digits_);
}

std::shared_ptr<const PathFilter> NumberedExtensionFilter::Create(char letter, std::uint64_t digits)
{
    return std::shared_ptr<const PathFilter>(new NumberedExtensionFilter(letter, digits));
}

NumberedExtensionFilter::NumberedExtensionFilter(char letter, std::uint64_t digits) : letter_(letter), digits_(digits)
{}

bool NumberedExtensionFilter::Accept(const PathCacheEntry& entry) const
{
    const char prefix[] = {'.', letter_};
    return isPrefixAndDigits(entry.GetExtension(), std::string_view(prefix, sizeof prefix), digits_);
}

std::shared_ptr<const PathFilter> OrFilter::Create(const PathFilterList& filters)
{
    return std::shared_ptr<const PathFilter>(new OrFilter(filters));
}

OrFilter::OrFilter(const PathFilterList& filters) : filters_(filters) {}

bool OrFilter::Accept(const PathCacheEntry& entry) const
{
    return std::any_of(filters_.begin(), filters_.end(),
                       [&](const auto& filter) { return filter && filter->Accept(entry); });
}

} // namespace Kvt::Mrl::Core::Service
