/// Says what a case holds and draws it, and can follow a case that is being written.

#include "Charts.h"
#include "Dates.h"
#include "Options.h"
#include "Report.h"
#include "SummaryCase.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace {

using namespace casereport;
using Clock = std::chrono::steady_clock;

void printProgress(const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader)
{
    const std::vector<float>& times = reader.timeStepDays();
    const CaseCalendar calendar(reader);
    std::printf("following: %4zu report steps, %6zu mini steps, up to %s\n", reader.reportStepDays().size(),
                times.size(), calendar.textAt(times.empty() ? 0.0 : calendar.days(times.back())).c_str());
    std::fflush(stdout);
}

void show(const Options& options, const SummaryCase& summary)
{
    printProgress(*summary.reader());
    if (!options.chartDirectory.empty())
        writeCharts(*summary.reader(), options.caseName, options.chartDirectory);
}

/// Looks again and again until the case's writer is done, or nothing has come for too long, which gives false.
bool follow(const Options& options, SummaryCase& summary)
{
    Clock::time_point lastNews = Clock::now();
    while (true) {
        if (summary.refresh(SummaryCase::Extent::Settled)) {
            lastNews = Clock::now();
            show(options, summary);
        }
        if (summary.finished() && summary.reader() != nullptr)
            return true;
        if (Clock::now() - lastNews > options.patience)
            return false;
        std::this_thread::sleep_for(options.interval);
    }
}

void report(const Options& options, const SummaryCase& summary)
{
    printFiles(std::cout, options.directory, options.caseName);
    printSummary(std::cout, *summary.reader());
    printTable(std::cout, *summary.reader(), options.vectors, options.tableRows);
    if (options.chartDirectory.empty())
        return;
    const auto pictures = writeCharts(*summary.reader(), options.caseName, options.chartDirectory);
    std::cout << "\n" << pictures.size() << " charts in " << options.chartDirectory << ":\n";
    for (const std::string& picture : pictures)
        std::cout << "  " << picture << "\n";
}

/// False if a case that was followed came to a halt before its writer was done. What there is of it is reported all the
/// same.
bool run(const Options& options)
{
    SummaryCase summary(options.directory, options.caseName, options.cache);
    const bool isWhole = !options.follow || follow(options, summary);
    if (!isWhole)
        std::cerr << "casereport: nothing new for " << options.patience.count()
                  << " seconds, and the writer isn't done\n";
    summary.refresh(SummaryCase::Extent::All);
    if (summary.reader() == nullptr)
        throw std::runtime_error(summary.trouble());
    report(options, summary);
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
