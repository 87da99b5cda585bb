#include "Report.h"

#include "Dates.h"
#include "Vectors.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <map>
#include <ostream>
#include <set>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;
using DataFormat = FileIdentifiers::DataFormat;
using SingleFinder = std::string (*)(const ICaseFileFinder&, DataFormat);
using SeveralFinder = std::vector<std::string> (*)(const ICaseFileFinder&, DataFormat);

struct FileKind
{
    const char* name;
    SingleFinder single;
    SeveralFinder several;
};

const FileKind fileKinds[] = {
    {"grid", FileFinders::Grid::findFile, nullptr},
    {"initial properties", FileFinders::Restart::findInitFile, nullptr},
    {"initial properties index", FileFinders::Restart::findInitSpecFile, nullptr},
    {"restart", nullptr, FileFinders::Restart::findRestartFiles},
    {"restart index", FileFinders::Restart::findSpecFile, nullptr},
    {"summary specification", FileFinders::Summary::findSpecFile, nullptr},
    {"summary data", nullptr, FileFinders::Summary::findSummaryFiles},
    {"RFT/PLT", FileFinders::RFT::findFile, nullptr},
    {"gradients", FileFinders::GRFT::findFile, nullptr},
    {"history match", FileFinders::HMD::findFile, nullptr},
    {"boundary flux", FileFinders::Dumpflux::findFile, nullptr},
    {"streamlines", nullptr, FileFinders::Streamlines::findSolutionFiles},
};

struct Form
{
    const char* name;
    DataFormat format;
};

const Form forms[] = {
    {"unformatted", DataFormat::UnformattedUnified()},
    {"unformatted, a file per step", DataFormat::UnformattedNotUnified()},
    {"formatted", DataFormat::FormattedUnified()},
    {"formatted, a file per step", DataFormat::FormattedNotUnified()},
};

std::vector<std::string> findFiles(const FileKind& kind, const ICaseFileFinder& finder, DataFormat format)
{
    if (kind.several != nullptr)
        return kind.several(finder, format);
    // Kinds of one file take no notice of unified or not: the forms of one file per step would give them twice.
    const std::string file = format.isUnified() ? kind.single(finder, format) : std::string();
    return file.empty() ? std::vector<std::string>() : std::vector<std::string>{file};
}

double megabytes(const std::vector<std::string>& files)
{
    double sum = 0.0;
    for (const std::string& file : files)
        sum += static_cast<double>(Service::FileName(file).FileLength());
    return sum / 1e6;
}

std::string kindText(SummaryVectorType::Enum kind)
{
    std::string label;
    return Service::findLabel<SummaryVectorType>(kind, label) ? label : "OTHER";
}

std::string shortened(const std::set<std::string>& words, std::size_t most)
{
    std::string text;
    std::size_t n = 0;
    for (const std::string& word : words) {
        if (n++ == most)
            return text + " ...";
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

void printKinds(std::ostream& out, const ISummaryReader& reader)
{
    struct Kind
    {
        std::size_t count = 0;
        std::set<std::string> keywords;
    };

    std::map<int, Kind> kinds;
    std::set<std::string> units;
    for (const SummaryVectorIDParams& vector : reader.allVectorIDs()) {
        Kind& kind = kinds[vector.vectorType()];
        ++kind.count;
        kind.keywords.insert(vector.getVectorName());
        if (!reader.unit(vector).empty())
            units.insert(reader.unit(vector));
    }
    for (const auto& [type, kind] : kinds)
        out << "  " << std::left << std::setw(24) << kindText(static_cast<SummaryVectorType::Enum>(type)) << std::right
            << std::setw(6) << kind.count << "  " << shortened(kind.keywords, 10) << "\n";
    out << "  units: " << shortened(units, 20) << "\n";
}

/// A choice that says something about most cases.
const std::vector<std::string>& usualVectors()
{
    static const std::vector<std::string> vectors{"FOPR", "FWPR", "FWIR", "FOPT", "FWCT", "FPR"};
    return vectors;
}

struct Column
{
    std::string label, units;
    std::shared_ptr<const std::vector<float>> values;
};

std::vector<Column> makeColumns(const ISummaryReader& reader, const std::vector<std::string>& wanted)
{
    std::vector<Column> columns;
    for (const std::string& text : wanted)
        for (const SummaryVectorIDParams& vector : vectorsNamed(reader, text))
            if (auto values = reader.getValues(vector))
                columns.push_back({labelOf(vector), reader.unit(vector), std::move(values)});
    return columns;
}

/// Where the last mini step of each report step stands among all mini steps.
std::vector<std::size_t> reportStepPlaces(const ISimpleSummaryReader& reader)
{
    const std::vector<float>& days = reader.timeStepDays();
    std::vector<std::size_t> places;
    std::size_t place = 0;
    for (float end : reader.reportStepDays()) {
        while (place + 1 < days.size() && days[place] < end)
            ++place;
        places.push_back(place);
    }
    return places;
}

} // namespace

void printFiles(std::ostream& out, const std::string& directory, const std::string& caseName)
{
    const CaseFileFinder finder(caseName, directory);
    out << "Case " << caseName << " in " << directory << "\n\nFiles\n";
    for (const FileKind& kind : fileKinds)
        for (const Form& form : forms) {
            const std::vector<std::string> files = findFiles(kind, finder, form.format);
            if (files.empty())
                continue;
            out << "  " << std::left << std::setw(26) << kind.name << std::setw(30) << form.name << std::right
                << std::setw(5) << files.size() << (files.size() == 1 ? " file " : " files") << std::fixed
                << std::setprecision(2) << std::setw(10) << megabytes(files) << " MB\n";
        }
}

void printSummary(std::ostream& out, const ISimpleSummaryReader& reader)
{
    const CaseCalendar calendar(reader);
    const std::vector<float>& times = reader.timeStepDays();
    out << "\nSummary\n  grid: " << reader.NX() << " x " << reader.NY() << " x " << reader.NZ() << "\n";
    for (const std::string& grid : reader.LGRs())
        out << "  local grid: " << grid << "\n";
    out << "  report steps: " << reader.reportStepDays().size() << ", mini steps: " << reader.miniTimeSteps().size()
        << "\n";
    if (!times.empty())
        out << "  from " << calendar.textAt(0) << " to " << calendar.textAt(calendar.days(times.back())) << ", "
            << std::fixed << std::setprecision(1) << times.back() << " " << reader.unit(reader.timeVectorID()) << "\n";
    out << "  vectors: " << reader.allVectorIDs().size() << "\n";
    printKinds(out, reader);
}

void printTable(std::ostream& out, const ISimpleSummaryReader& reader, const std::vector<std::string>& vectors,
                int mostRows)
{
    for (const std::string& text : vectors)
        if (vectorsNamed(reader, text).empty())
            out << "\nThere is no vector " << text << ".\n";
    const std::vector<Column> columns = makeColumns(reader, vectors.empty() ? usualVectors() : vectors);
    const std::vector<std::size_t> places = reportStepPlaces(reader);
    const CaseCalendar calendar(reader);
    out << "\n" << std::left << std::setw(12) << "date" << std::right << std::setw(10) << "days";
    for (const Column& column : columns)
        out << std::setw(16) << column.label;
    out << "\n" << std::setw(22) << "";
    for (const Column& column : columns)
        out << std::setw(16) << column.units;
    out << "\n";
    const std::size_t stride =
        (places.size() + static_cast<std::size_t>(mostRows) - 1) / static_cast<std::size_t>(mostRows);
    for (std::size_t n = 0; n < places.size(); ++n) {
        if ((places.size() - 1 - n) % std::max<std::size_t>(stride, 1) != 0)
            continue;
        const double day = calendar.days(reader.timeStepDays()[places[n]]);
        out << std::left << std::setw(12) << calendar.textAt(day) << std::right << std::fixed << std::setprecision(1)
            << std::setw(10) << day;
        for (const Column& column : columns)
            if (places[n] < column.values->size())
                out << std::defaultfloat << std::setprecision(6) << std::setw(16) << (*column.values)[places[n]];
        out << "\n";
    }
}

} // namespace casereport
