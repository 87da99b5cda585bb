#include "DerivativeReport.h"

#include "Dates.h"
#include "DerivativeCharts.h"
#include "Labels.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr int nameWidth = 10, numberWidth = 16;

/// Names of arrays, each with its type.
template <class Reader>
void printArrays(std::ostream& out, const char* category, const std::vector<std::string>& names, const Reader& reader)
{
    out << "  " << std::left << std::setw(nameWidth) << category << std::right;
    for (const std::string& name : names)
        out << " " << name << ":" << labelOf<ValueType>(reader.arrayValueType(name));
    out << "\n";
}

void printNames(std::ostream& out, const char* heading, const std::vector<std::string>& names)
{
    out << "  " << heading << ":";
    for (const std::string& name : names)
        out << " " << name;
    out << "\n";
}

void printParameters(std::ostream& out, const std::vector<GRFTParameter>& parameters)
{
    out << "  parameters:";
    for (const GRFTParameter& parameter : parameters)
        out << (&parameter == &parameters.front() ? " " : ", ") << labelOf(parameter) << " of type " << parameter.type;
    out << "\n";
}

void printHeadings(std::ostream& out, const std::vector<std::string>& names, const std::vector<std::string>& numbers)
{
    out << "  " << std::left;
    for (const std::string& name : names)
        out << std::setw(nameWidth) << name;
    out << std::right;
    for (const std::string& number : numbers)
        out << std::setw(numberWidth) << number;
    out << "\n";
}

void printMeans(std::ostream& out, const GRFTReader& reader)
{
    const std::size_t last = reader.dates().size() - 1;
    const std::vector<std::string> gradients = reader.gradientsNames(GRFTParameter(), "");
    out << "\n  means over the cells of each well on " << textOf(reader.dates()[last]) << ", by parameter:\n";
    std::vector<std::string> headings{"connections"};
    headings.insert(headings.end(), gradients.begin(), gradients.end());
    printHeadings(out, {"well", "parameter"}, headings);
    out << std::fixed << std::setprecision(4);
    for (const std::string& well : reader.wells())
        for (const GRFTParameter& parameter : reader.parameters()) {
            out << "  " << std::left << std::setw(nameWidth) << well << std::setw(nameWidth) << labelOf(parameter)
                << std::right << std::setw(numberWidth) << std::max(0, reader.getNCON(well, last));
            for (const std::string& gradient : gradients)
                out << std::setw(numberWidth) << meanGradient(reader, gradient, parameter, well, last).value_or(0.0);
            out << "\n";
        }
}

/// A row for each quantity of a well or group.
void printOwner(std::ostream& out, const HMDReader& reader, const std::string& owner,
                const std::vector<std::string>& quantities)
{
    const std::size_t last = reader.times().size() - 1;
    for (std::size_t n = 0; n < quantities.size(); ++n) {
        std::vector<double> values;
        out << "  " << std::left << std::setw(nameWidth) << owner << std::setw(nameWidth) << quantities[n]
            << std::right;
        if (!reader.isWithoutValues()) {
            reader.getArray("VALUES", HMDParameter(), owner, last, values);
            out << std::setw(numberWidth) << (n < values.size() ? values[n] : 0.0);
        }
        for (const HMDParameter& parameter : reader.parameters())
            out << std::setw(numberWidth) << derivative(reader, n, parameter, owner, last).value_or(0.0);
        out << "\n";
    }
}

void printDerivatives(std::ostream& out, const HMDReader& reader)
{
    out << std::fixed << std::setprecision(1) << "\n  at time " << reader.times().back()
        << ", and derivatives by parameter:\n";
    std::vector<std::string> headings;
    if (!reader.isWithoutValues())
        headings.emplace_back("value");
    for (const HMDParameter& parameter : reader.parameters())
        headings.push_back(labelOf(parameter));
    printHeadings(out, {"name", "quantity"}, headings);
    out << std::setprecision(4);
    for (const std::string& well : reader.wellNames())
        printOwner(out, reader, well, reader.wellQuantities());
    for (const std::string& group : reader.groupNames())
        printOwner(out, reader, group, reader.groupQuantities());
}

} // namespace

void printGradients(std::ostream& out, const GRFTReader& reader)
{
    out << "\nGradients: " << reader.wells().size() << " wells, " << reader.parameters().size() << " parameters, "
        << reader.dates().size() << " dates\n";
    printParameters(out, reader.parameters());
    printArrays(out, "basic", reader.basicDataNames(GRFTParameter(), ""), reader);
    printArrays(out, "gradients", reader.gradientsNames(GRFTParameter(), ""), reader);
    if (!reader.dates().empty())
        printMeans(out, reader);
}

void printMatchData(std::ostream& out, const HMDReader& reader)
{
    out << "\nHistory match data: " << reader.wellNames().size() << " wells, " << reader.groupNames().size()
        << " groups, " << reader.parameters().size() << " parameters, " << reader.times().size() << " times\n  "
        << (reader.isFileEncoded() ? "encoded" : "not encoded") << ", "
        << (reader.isSinglePrecision() ? "single" : "double") << " precision, "
        << (reader.isWithoutValues() ? "without" : "with") << " values\n";
    printParameters(out, reader.parameters());
    printNames(out, "quantities of wells", reader.wellQuantities());
    printNames(out, "quantities of groups", reader.groupQuantities());
    printArrays(out, "preamble", reader.preambleArrayNames(), reader);
    printArrays(out, "names", reader.variableArrayNames(), reader);
    printArrays(out, "numbers", reader.gradientArrayNames(), reader);
    if (!reader.times().empty())
        printDerivatives(out, reader);
}

} // namespace casereport
