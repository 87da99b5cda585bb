#include "MessageOutput.h"

#include "WriterSettings.h"

#include <locale>
#include <sstream>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr double breakthroughCut = 0.01; ///< the part of water in what a producer gives that counts as one

/// With one decimal of each number that isn't an integer.
template <class... Parts>
std::string textOf(const Parts&... parts)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.setf(std::ios::fixed);
    text.precision(1);
    (text << ... << parts);
    return text.str();
}

double recovery(const Simulator& simulator)
{
    return 100.0 * (1.0 - simulator.oilInPlace() / simulator.initialOilInPlace());
}

double waterCut(const WellState& well)
{
    const double liquid = well.oilRate + well.waterRate;
    return liquid > 0.0 ? well.waterRate / liquid : 0.0;
}

} // namespace

MessageOutput::MessageOutput(const Options& options, const Simulator& simulator, const SubRegion& region)
    : writer_(options.directory, options.caseName, startDate(), options.overwrite, true),
      region_(region),
      initialBalance_(balanceOf(simulator, region)),
      told_(simulator.wells().size())
{
    const Grid& grid = simulator.reservoir().grid;
    say(MessageType::Comment,
        textOf("waterflood begins: ", grid.nx, " x ", grid.ny, " x ", grid.nz, " cells, ", grid.activeCount(),
               " of them active, ", simulator.wells().size(), " wells, ", simulator.initialOilInPlace(),
               " sm3 of oil in place."),
        0.0);
    say(MessageType::Comment,
        textOf("Region ", SubRegion::number, " of the flux file: columns ", region.firstI + 1, " to ", region.lastI + 1,
               " in x, ", region.firstJ + 1, " to ", region.lastJ + 1, " in y."),
        0.0);
    close();
}

void MessageOutput::watch(const Simulator& simulator)
{
    for (std::size_t well = 0; well < told_.size(); ++well) {
        watchWater(simulator, well);
        watchLimit(simulator, well);
    }
}

void MessageOutput::watchWater(const Simulator& simulator, std::size_t well)
{
    const Well& description = simulator.reservoir().wells[well];
    const WellState& state = simulator.wells()[well];
    if (told_[well].water || description.injector || waterCut(state) < breakthroughCut)
        return;
    told_[well].water = true;
    say(MessageType::Warning,
        textOf("Water has broken through in ", description.name, ": ", 100.0 * waterCut(state), " % of ",
               state.oilRate + state.waterRate, " sm3/day. The well has produced ", state.oilTotal,
               " sm3 of oil so far."),
        simulator.days(), description.name);
}

void MessageOutput::watchLimit(const Simulator& simulator, std::size_t well)
{
    const Well& description = simulator.reservoir().wells[well];
    const WellState& state = simulator.wells()[well];
    const bool isLimited = description.control == WellControl::Rate && state.control == WellControl::Pressure;
    if (isLimited && !told_[well].limit)
        say(MessageType::Problem,
            textOf(description.name, " can't hold its rate at the pressure limit of ", description.pressureLimit,
                   " bar: ", state.oilRate + state.waterRate, " in place of ", description.targetRate, " sm3/day."),
            simulator.days(), description.name);
    told_[well].limit = isLimited;
}

void MessageOutput::endReportStep(const Simulator& simulator, int reportStep)
{
    say(MessageType::Message,
        textOf("Report step ", reportStep, " on day ", simulator.days(), ": ", recovery(simulator),
               " % of the oil recovered."),
        simulator.days());
    close();
}

void MessageOutput::finish(const Simulator& simulator)
{
    const Volumes balance = balanceOf(simulator, region_);
    say(MessageType::Message,
        textOf("Region ", SubRegion::number, " has given ", initialBalance_.oil - balance.oil, " sm3 of oil and ",
               initialBalance_.water - balance.water, " sm3 of water to its surroundings."),
        simulator.days());
    say(MessageType::Comment,
        textOf("waterflood ends on day ", simulator.days(), ": ", recovery(simulator), " % of the oil recovered."),
        simulator.days());
    close();
}

void MessageOutput::breakOff(const Simulator& simulator, const std::string& reason)
{
    say(MessageType::Error, textOf("waterflood breaks off: ", reason), simulator.days());
    close();
}

void MessageOutput::say(Severity severity, const std::string& text, double days, const std::string& well)
{
    if (!open_)
        writer_.open();
    open_ = true;
    writer_.writeMessage(severity, text, days, well, well.empty() ? "" : "WELL", "");
}

void MessageOutput::close()
{
    open_ = false;
    writer_.close();
}

} // namespace waterflood
