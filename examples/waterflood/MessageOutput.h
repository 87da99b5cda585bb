#pragma once

#include "Options.h"
#include "SubRegion.h"

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace waterflood {

/// Tells in the message file how the run goes on and what is worth a look in it. The file is closed behind each report
/// step, and opened again for the next message: whoever reads it between the steps finds it complete.
class MessageOutput
{
public:
    MessageOutput(const Options& options, const Simulator& simulator, const SubRegion& region);

    /// Warns of what a time step that has just been done has brought: water in a producer, a rate that isn't held.
    void watch(const Simulator& simulator);

    void endReportStep(const Simulator& simulator, int reportStep);

    /// The last words of a run: what it has come to, and what the region has given to its surroundings.
    void finish(const Simulator& simulator);

    /// The last words of a run that can't go on.
    void breakOff(const Simulator& simulator, const std::string& reason);

private:
    using Severity = Kvt::Mrl::MrlIO::MessageType::Enum;

    /// What has been told of a well.
    struct Told
    {
        bool water = false, limit = false;
    };

    void watchWater(const Simulator& simulator, std::size_t well);
    void watchLimit(const Simulator& simulator, std::size_t well);
    void say(Severity severity, const std::string& text, double days, const std::string& well = {});
    void close();

    Kvt::Mrl::MrlIO::MessageWriter writer_;
    bool open_ = false;
    SubRegion region_;
    Volumes initialBalance_;
    std::vector<Told> told_;
};

} // namespace waterflood
