#include "Options.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace casereport {

const char* const usage =
    "Usage: casereport DIRECTORY CASE [options]\n"
    "Says what a case holds, prints vectors over time, draws them, maps of its layers, profiles of\n"
    "its wells, derivatives by parameters and the flow out of its regions.\n"
    "  --vectors LIST      for the table: KEYWORD, KEYWORD:NAME or KEYWORD:NUMBER, by commas\n"
    "  --rows N            most rows of each table (25)\n"
    "  --charts DIRECTORY  draw SVG pictures there, with an index.html\n"
    "  --maps LIST         of properties to map, by commas (SWAT,PRESSURE,PERMX)\n"
    "  --layer N           which layer the maps show (the one in the middle)\n"
    "  --map-steps LIST    report steps that they show (four, spread evenly)\n"
    "  --wells LIST        wells whose profiles are drawn, by commas (all)\n"
    "  --dates LIST        dates that these show, as YYYY-MM-DD (four, spread evenly)\n"
    "  --follow            keep reading while the case grows, until its writer is done\n"
    "  --interval MS       time between two looks when following (500)\n"
    "  --patience S        stop following a case that stands still for so long (30)\n"
    "  --no-cache          neither use nor write the summary's content cache\n"
    "  --help              this text\n";

namespace {

int parseNumber(const std::string& text, const std::string& option, int least = 1)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < least)
        throw std::invalid_argument("bad value for " + option + ": " + text);
    return value;
}

std::vector<std::string> split(const std::string& list)
{
    std::vector<std::string> parts;
    for (std::size_t from = 0; from <= list.size();) {
        const std::size_t to = std::min(list.find(',', from), list.size());
        if (to > from)
            parts.push_back(list.substr(from, to - from));
        from = to + 1;
    }
    return parts;
}

std::vector<int> parseSteps(const std::string& list, const std::string& option)
{
    std::vector<int> steps;
    for (const std::string& step : split(list))
        steps.push_back(parseNumber(step, option, 0));
    return steps;
}

Kvt::Mrl::MrlIO::Service::YearMonthDay parseDate(const std::string& text, const std::string& option)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        throw std::invalid_argument("bad value for " + option + ": " + text);
    return {parseNumber(text.substr(0, 4), option), parseNumber(text.substr(5, 2), option),
            parseNumber(text.substr(8), option)};
}

void parseValue(const std::string& name, const std::string& value, Options& options)
{
    if (name == "--vectors")
        options.vectors = split(value);
    else if (name == "--rows")
        options.tableRows = parseNumber(value, name);
    else if (name == "--charts")
        options.chartDirectory = value;
    else if (name == "--maps")
        options.maps.properties = split(value);
    else if (name == "--layer")
        options.maps.layer = parseNumber(value, name);
    else if (name == "--map-steps")
        options.maps.steps = parseSteps(value, name);
    else if (name == "--wells")
        options.profiles.wells = split(value);
    else if (name == "--dates")
        for (const std::string& date : split(value))
            options.profiles.dates.push_back(parseDate(date, name));
    else if (name == "--interval")
        options.interval = std::chrono::milliseconds(parseNumber(value, name));
    else if (name == "--patience")
        options.patience = std::chrono::seconds(parseNumber(value, name));
    else
        throw std::invalid_argument("unknown option: " + name);
}

bool parseFlag(const std::string& name, Options& options)
{
    if (name == "--follow")
        options.follow = true;
    else if (name == "--no-cache")
        options.cache = false;
    else if (name == "--help")
        options.help = true;
    else
        return false;
    return true;
}

} // namespace

Options parseOptions(int argumentCount, const char* const* arguments)
{
    Options options;
    std::vector<std::string> places;
    for (int n = 1; n < argumentCount; ++n) {
        const std::string argument = arguments[n];
        if (argument.rfind("--", 0) != 0)
            places.push_back(argument);
        else if (!parseFlag(argument, options)) {
            if (n + 1 == argumentCount)
                throw std::invalid_argument("no value for " + argument);
            parseValue(argument, arguments[++n], options);
        }
    }
    if (options.help)
        return options;
    if (places.size() != 2)
        throw std::invalid_argument("a directory and a case name are needed");
    options.directory = places[0];
    options.caseName = places[1];
    return options;
}

} // namespace casereport
