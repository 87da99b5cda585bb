#include "SideReport.h"

#include "DerivativeCharts.h"
#include "DerivativeReport.h"
#include "FluxCharts.h"
#include "FluxReport.h"
#include "MessageReport.h"
#include "RftReport.h"

#include <exception>
#include <ostream>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

template <class Action>
void attempt(std::ostream& out, const Action& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        out << "\n" << error.what() << "\n";
    }
}

} // namespace

void printSideFiles(std::ostream& out, const SideFiles& files, int mostRows)
{
    if (files.wells() != nullptr)
        attempt(out, [&] { printWellResults(out, *files.wells(), mostRows); });
    if (files.gradients() != nullptr)
        attempt(out, [&] { printGradients(out, *files.gradients()); });
    if (files.matchData() != nullptr)
        attempt(out, [&] { printMatchData(out, *files.matchData()); });
    if (files.fluxes() != nullptr)
        attempt(out, [&] { printFluxes(out, *files.fluxes(), mostRows); });
    if (files.messages() != nullptr)
        printMessages(out, *files.messages(), mostRows);
    if (!files.trouble().empty())
        out << "\n" << files.trouble() << "\n";
}

void drawSideFiles(const SideFiles& files, const ProfileChoice& choice, const ISimpleSummaryReader* summary,
                   const std::string& caseName, PictureFolder& folder, std::ostream& out)
{
    if (files.wells() != nullptr)
        attempt(out, [&] {
            for (const std::string& thing : writeProfiles(*files.wells(), choice, caseName, folder))
                out << "The well results have no " << thing << ".\n";
        });
    if (files.gradients() != nullptr && summary != nullptr)
        attempt(out, [&] { drawGradients(*files.gradients(), *summary, caseName, folder); });
    if (files.matchData() != nullptr && summary != nullptr)
        attempt(out, [&] { drawMatchData(*files.matchData(), *summary, caseName, folder); });
    if (files.fluxes() != nullptr && summary != nullptr)
        attempt(out, [&] { writeFluxCharts(*files.fluxes(), CaseCalendar(*summary), caseName, folder); });
}

} // namespace casereport
