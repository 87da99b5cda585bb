#include "files/FilterTables.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace Kvt::Mrl::MrlIO {
namespace {

using DataFormat = FileIdentifiers::DataFormat;
using Service::PathFilterList;

PathFilterList extensionFilters(const extensions::Pair& pair)
{
    PathFilterList filters;
    for (const std::string_view extension : pair) {
        if (!extension.empty())
            filters.push_back(Service::ExtensionFilter::Create(std::string(extension)));
    }
    return filters;
}

std::shared_ptr<const Service::PathFilter> createNumberedExtensionFilter(std::string_view letters, unsigned digits)
{
    PathFilterList filters;
    for (const char letter : letters)
        filters.push_back(Service::NumberedExtensionFilter::Create(letter, digits));
    return Service::OrFilter::Create(filters);
}

PathFilterList stepFilters(const char* letters)
{
    return {createNumberedExtensionFilter(letters, 4), createNumberedExtensionFilter(letters, 2)};
}

} // namespace

const std::vector<DataFormat>& usableFormats()
{
    static const auto& formats = *new std::vector<DataFormat>{
        DataFormat::FormattedUnified(),    DataFormat::FormattedNotUnified(),    DataFormat::FormattedAnyUnified(),
        DataFormat::UnformattedUnified(),  DataFormat::UnformattedNotUnified(),  DataFormat::UnformattedAnyUnified(),
        DataFormat::AnyFormattedUnified(), DataFormat::AnyFormattedNotUnified(), DataFormat::DefaultAll()};
    return formats;
}

void append(PathFilterList& filters, const PathFilterList& more)
{
    filters.insert(filters.end(), more.begin(), more.end());
}

bool isAnyOf(const std::string& name, std::initializer_list<FilterFunction> kinds, DataFormat format)
{
    return std::any_of(kinds.begin(), kinds.end(),
                       [&](FilterFunction kind) { return FileIdentifiers::doesPassAnyFilter(name, kind(format)); });
}

PlainFilters::PlainFilters(std::initializer_list<extensions::PlainKind> kinds) : refusal_(kinds.begin()->refusal)
{
    for (const extensions::PlainKind& kind : kinds) {
        append(formatted_, extensionFilters(kind.formatted));
        append(unformatted_, extensionFilters(kind.unformatted));
        append(either_, extensionFilters(kind.unformatted));
        append(either_, extensionFilters(kind.formatted));
    }
}

PlainFilters::PlainFilters(const extensions::NumberedKind& kind)
    : formatted_{Service::NumberedStringExtensionFilter::Create(std::string(kind.formattedText), kind.digits)},
      unformatted_{Service::NumberedStringExtensionFilter::Create(std::string(kind.unformattedText), kind.digits)},
      either_{unformatted_[0], formatted_[0]},
      refusal_(kind.refusal)
{}

const PathFilterList& PlainFilters::choose(DataFormat format) const
{
    if (format.isDefaultFormatted())
        return either_;
    if (format.isFormatted())
        return formatted_;
    if (format.isUnformatted())
        return unformatted_;
    throw std::runtime_error(refusal_);
}

SteppedFilters::SteppedFilters(const extensions::SteppedKind& kind)
    : unexpanded_{{DataFormat::FormattedUnified(), extensionFilters(kind.formattedUnified)},
                  {DataFormat::UnformattedUnified(), extensionFilters(kind.unformattedUnified)},
                  {DataFormat::FormattedNotUnified(), stepFilters(kind.formattedLetters)},
                  {DataFormat::UnformattedNotUnified(), stepFilters(kind.unformattedLetters)}},
      refusal_(kind.refusal)
{
    for (const DataFormat format : usableFormats()) {
        std::vector<DataFormat> definite;
        format.expandDefaults(definite);
        for (const DataFormat one : definite)
            append(expanded_[format], unexpanded(one));
    }
}

const PathFilterList& SteppedFilters::unexpanded(DataFormat format) const
{
    const auto found = unexpanded_.find(format);
    if (found == unexpanded_.end())
        throw std::runtime_error(refusal_);
    return found->second;
}

const PathFilterList& SteppedFilters::expanded(DataFormat format) const
{
    const auto found = expanded_.find(format);
    return found != expanded_.end() ? found->second : unexpanded(format); // which refuses it
}

} // namespace Kvt::Mrl::MrlIO
