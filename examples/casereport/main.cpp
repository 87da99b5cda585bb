/// Says what a case holds and draws it, and can follow a case that is being written.

#include "CellCase.h"
#include "CellReport.h"
#include "Charts.h"
#include "Dates.h"
#include "Maps.h"
#include "Options.h"
#include "Report.h"
#include "SideReport.h"
#include "SummaryCase.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <thread>

namespace {

using namespace casereport;
using Kvt::Mrl::MrlIO::ISimpleSummaryReader;
using Clock = std::chrono::steady_clock;

void printProgress(const ISimpleSummaryReader& reader)
{
    const std::vector<float>& times = reader.timeStepDays();
    const CaseCalendar calendar(reader);
    std::printf("following: %4zu report steps, %6zu mini steps, up to %s\n", reader.reportStepDays().size(),
                times.size(), calendar.textAt(times.empty() ? 0.0 : calendar.days(times.back())).c_str());
    std::fflush(stdout);
}

/// Draws what there is. With a summary, maps show none of the steps that it doesn't have yet: their writer may be at
/// work on them.
void draw(const Options& options, const ISimpleSummaryReader* summary, const CellCase& cells, PictureFolder& folder)
{
    int lastStep = std::numeric_limits<int>::max();
    if (summary != nullptr) {
        writeCharts(*summary, options.caseName, folder);
        lastStep = static_cast<int>(summary->reportStepDays().size());
    }
    if (cells.initial() != nullptr || cells.steps() != nullptr)
        for (const std::string& property : writeMaps(cells, options.maps, lastStep, folder))
            std::cout << "There is no property " << property << " to map.\n";
}

std::string headingOf(const Options& options)
{
    return "Case " + options.caseName;
}

void show(const Options& options, const SummaryCase& summary, CellCase& cells)
{
    printProgress(*summary.reader());
    if (options.chartDirectory.empty())
        return;
    try {
        cells.refresh();
        PictureFolder folder(options.chartDirectory);
        draw(options, summary.reader(), cells, folder);
        folder.writePage(headingOf(options));
    } catch (const std::exception& error) {
        std::cerr << "not drawn this time: " << error.what() << "\n"; // a file that is being replaced, say
    }
}

/// Looks again and again until the case's writer is done, or nothing has come for too long, which gives false.
bool follow(const Options& options, SummaryCase& summary, CellCase& cells)
{
    Clock::time_point lastNews = Clock::now();
    while (true) {
        if (summary.refresh(SummaryCase::Extent::Settled)) {
            lastNews = Clock::now();
            show(options, summary, cells);
        }
        if (summary.finished() && summary.reader() != nullptr)
            return true;
        if (Clock::now() - lastNews > options.patience)
            return false;
        std::this_thread::sleep_for(options.interval);
    }
}

void report(const Options& options, const ISimpleSummaryReader* summary, const CellCase& cells,
            const SideFiles& sideFiles)
{
    printFiles(std::cout, options.directory, options.caseName);
    if (summary != nullptr) {
        printSummary(std::cout, *summary);
        printTable(std::cout, *summary, options.vectors, options.tableRows);
    }
    printCells(std::cout, cells, options.tableRows);
    printSideFiles(std::cout, sideFiles, options.tableRows);
    if (options.chartDirectory.empty())
        return;
    PictureFolder folder(options.chartDirectory);
    draw(options, summary, cells, folder);
    drawSideFiles(sideFiles, options.profiles, summary, options.caseName, folder, std::cout);
    folder.writePage(headingOf(options));
    std::cout << "\n" << folder.pictures().size() << " pictures in " << options.chartDirectory << ":\n";
    for (const std::string& picture : folder.pictures())
        std::cout << "  " << picture << "\n";
}

/// False if a case that was followed came to a halt before its writer was done. What there is of it is reported all the
/// same.
bool run(const Options& options)
{
    SummaryCase summary(options.directory, options.caseName, options.cache);
    CellCase cells(options.directory, options.caseName);
    const bool isWhole = !options.follow || follow(options, summary, cells);
    if (!isWhole)
        std::cerr << "casereport: nothing new for " << options.patience.count()
                  << " seconds, and the writer isn't done\n";
    summary.refresh(SummaryCase::Extent::All);
    cells.refresh();
    const SideFiles sideFiles(options.directory, options.caseName);
    if (summary.reader() == nullptr && cells.initial() == nullptr && cells.steps() == nullptr && sideFiles.isEmpty())
        throw std::runtime_error(summary.trouble());
    report(options, summary.reader(), cells, sideFiles);
    return isWhole;
}

int complain(const std::exception& error, const char* advice, int exitStatus)
{
    std::cerr << "casereport: " << error.what() << "\n" << advice;
    return exitStatus;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    Options options;
    try {
        options = parseOptions(argumentCount, arguments);
    } catch (const std::exception& error) {
        return complain(error, usage, 2);
    }
    if (options.help) {
        std::cout << usage;
        return 0;
    }
    try {
        return run(options) ? 0 : 1;
    } catch (const std::exception& error) {
        return complain(error, "", 1);
    }
}
