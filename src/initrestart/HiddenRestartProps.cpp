#include <mrlio/HiddenRestartProps.h>

#include <array>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::array<std::string_view, 52> hiddenNames{
    // headers
    "SEQNUM", "INTEHEAD", "DOUBHEAD", "LOGIHEAD",
    // groups, segments, wells and connections
    "IGRP", "ZGRP", "SGRP", "XGRP", "ISEG", "IWEL", "SWEL", "ZWEL", "XWEL", "ICON", "SCON", "XCON", "DLYTIM", "HIDDEN",
    "ZTRACER",
    // local grids and the connections between grids
    "LGRNAMES", "LGR", "LGRHEADI", "LGRHEADQ", "LGRHEADD", "LGRJOIN", "ENDLGR", "LGRSGONE", "ZCOMPS", "ZPHASE",
    "ZFLUID", "ENDRING", "NNCL", "NNCG", "STARTSOL", "ENDSOL",
    // aquifers
    "IAAQ", "SAAQ", "XAAQ", "XACQ", "TAAQ", "SAQS", "JCAQ", "SCAQ", "IAQL", "ZAQL", "IAQN", "RAQN", "ICAQ", "ACAQ",
    "ICAQNUM", "SCAQNUM", "ACAQNUM"};

} // namespace

const std::set<std::string>& HiddenRestartProps::hiddenGridProps()
{
    // Never freed, so that it can be asked while the process ends.
    static const auto* const names = new std::set<std::string>(hiddenNames.begin(), hiddenNames.end());
    return *names;
}

bool HiddenRestartProps::isNotAPropertyArray(const std::string& name)
{
    return hiddenGridProps().contains(name);
}

} // namespace Kvt::Mrl::MrlIO
