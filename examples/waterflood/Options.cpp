#include "Options.h"

#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace waterflood {

const char* const usage = "Usage: waterflood DIRECTORY CASE [options]\n"
                          "Simulates a five-spot waterflood and writes its case while it runs.\n"
                          "  --cells NXxNYxNZ    size of the grid (40x40x5)\n"
                          "  --years Y           simulated time (10)\n"
                          "  --report-days D     length of a report step (30.4375)\n"
                          "  --longest-step D    longest time step (10)\n"
                          "  --seed N            which permeability field (1)\n"
                          "  --pace MS           milliseconds to wait after each time step (0)\n"
                          "  --formatted         text files in place of unformatted ones\n"
                          "  --split             a file per report step in place of unified ones\n"
                          "  --local-grid        also a local grid around PROD1, which is completed in it\n"
                          "  --random-order      write the grids side by side in place of one after the other\n"
                          "  --gradients         also the derivatives by parameters of the model: two more runs\n"
                          "  --overwrite         replace the files of an earlier run\n"
                          "  --help              this text\n";

namespace {

constexpr double mostYears = 1000.0;

template <class Number>
Number parseNumber(std::string_view text, const std::string& option, Number least,
                   Number most = std::numeric_limits<Number>::max())
{
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(value >= least && value <= most))
        throw std::invalid_argument("bad value for " + option + ": " + std::string(text));
    return value;
}

void parseCells(const std::string& text, Options& options)
{
    const std::size_t first = text.find('x'), second = text.find('x', first + 1);
    if (first == std::string::npos || second == std::string::npos)
        throw std::invalid_argument("bad value for --cells: " + text);
    const std::string_view view(text);
    options.nx = parseNumber(view.substr(0, first), "--cells", 3);
    options.ny = parseNumber(view.substr(first + 1, second - first - 1), "--cells", 3);
    options.nz = parseNumber(view.substr(second + 1), "--cells", 1);
}

bool parseFlag(std::string_view name, Options& options)
{
    if (name == "--formatted")
        options.formatted = true;
    else if (name == "--split")
        options.unified = false;
    else if (name == "--local-grid")
        options.localGrid = true;
    else if (name == "--random-order")
        options.randomOrder = true;
    else if (name == "--gradients")
        options.gradients = true;
    else if (name == "--overwrite")
        options.overwrite = true;
    else if (name == "--help")
        options.help = true;
    else
        return false;
    return true;
}

void parseValue(const std::string& name, const std::string& value, Options& options)
{
    if (name == "--cells")
        parseCells(value, options);
    else if (name == "--years")
        options.years = parseNumber(value, name, 0.0, mostYears);
    else if (name == "--report-days")
        options.reportDays = parseNumber(value, name, 0.01);
    else if (name == "--longest-step")
        options.longestStep = parseNumber(value, name, 0.001);
    else if (name == "--seed")
        options.seed = parseNumber(value, name, 0U);
    else if (name == "--pace")
        options.pace = std::chrono::milliseconds(parseNumber(value, name, 0));
    else
        throw std::invalid_argument("unknown option: " + name);
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

} // namespace waterflood
