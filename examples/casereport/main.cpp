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
    const std::vector<float>& days = reader.timeStepDays();
    const double day = days.empty() ? 0.0 : days.back();
    std::printf("following: %4zu report steps, %6zu mini steps, up to %s\n", reader.reportStepDays().size(),
                days.size(), CaseCalendar(reader.startDate()).textAt(day).c_str());
    std::fflush(stdout);
}

void show(const Options& options, const SummaryCase& summary)
{
    printProgress(*summary.reader());
    if (!options.chartDirectory.empty())
        writeCharts(*summary.reader(), options.caseName, options.chartDirectory);
}

/// Looks again and again until the case's writer is done, or nothing has come for too long.
void follow(const Options& options, SummaryCase& summary)
{
    Clock::time_point lastNews = Clock::now();
    while (true) {
        if (summary.refresh()) {
            lastNews = Clock::now();
            show(options, summary);
        }
        if (summary.finished() && summary.reader() != nullptr)
            return;
        if (Clock::now() - lastNews > options.patience)
            throw std::runtime_error("nothing new for too long" +
                                     (summary.trouble().empty() ? std::string() : ": " + summary.trouble()));
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

void run(const Options& options)
{
    SummaryCase summary(options.directory, options.caseName, options.cache);
    if (options.follow)
        follow(options, summary);
    else
        summary.refresh();
    if (summary.reader() == nullptr)
        throw std::runtime_error(summary.trouble());
    report(options, summary);
}

} // namespace

int main(int argumentCount, char** arguments)
{
    try {
        const Options options = parseOptions(argumentCount, arguments);
        if (options.help)
            std::cout << usage;
        else
            run(options);
        return 0;
    } catch (const std::invalid_argument& error) {
        std::cerr << "casereport: " << error.what() << "\n" << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "casereport: " << error.what() << "\n";
        return 1;
    }
}
