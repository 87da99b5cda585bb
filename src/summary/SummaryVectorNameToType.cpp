#include <mrlio/SummaryVectorNameToType.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

using Kind = SummaryVectorType;
using namespace std::string_view_literals;

constexpr auto unknownKind = static_cast<Kind::Enum>(21);

/// Names of vectors about the simulator's own work, sorted.
constexpr std::array performanceNames{
    "LINEARP"sv,  "LINEARS"sv,  "MAX"sv,      "NAIMFRAC"sv, "NBAKFL"sv,   "NBOEX"sv,    "NBOEXG"sv,   "NBOEXO"sv,
    "NBYTOT"sv,   "NCPRLINS"sv, "NGOPAS"sv,   "NLRESMAX"sv, "NLRESSUM"sv, "NNEWST"sv,   "NPBMAXEX"sv, "NPBMINEX"sv,
    "NPDMAXEX"sv, "NPDMINEX"sv, "NRSMAXEX"sv, "NRSMINEX"sv, "NRVMAXEX"sv, "NRVMINEX"sv, "NTS"sv,      "NTSECL"sv,
    "NTSMCL"sv,   "NTSPCL"sv,   "PERFORMA"sv, "SCPRTG"sv,   "SCPU"sv,     "SDMAXF"sv,   "SDSAMX"sv,   "SDSATG"sv,
    "SDXNLM"sv,   "SDXNTG"sv,   "SIMAXF"sv,   "SMAXITS"sv,  "SMAXLIN"sv,  "SMAXST"sv,   "SMINST"sv,   "SNEWTIT"sv,
    "STEPTYPE"sv, "STOTLN"sv,   "STOTNL"sv,   "STOTRS"sv,   "STOTTS"sv,   "STPATG"sv,   "STPAVE"sv,   "STPMAX"sv,
    "STPTLM"sv,   "STPTTG"sv,   "STRA_NUM"sv, "STRD_NUM"sv, "STRT_NUM"sv, "STSTEP"sv,   "STTELM"sv,   "STTETG"sv,
    "SUMLINS"sv,  "TIMESTEP"sv,
};
static_assert(performanceNames.size() == 58);
static_assert(std::ranges::is_sorted(performanceNames));

constexpr std::array performancePrefixes{"MAX"sv, "NEWT"sv, "NNUM"sv, "NLINS"sv, "TCPU"sv, "TELAP"sv, "ZIPEFF"sv};
/// These count from the second letter on, behind any first one.
constexpr std::array performanceTails{"LINEARS"sv, "LINEARP"sv, "SUMLINS"sv};

bool isPerformanceName(std::string_view name)
{
    const auto isPrefix = [name](std::string_view prefix) { return name.starts_with(prefix); };
    const auto isTail = [name](std::string_view tail) { return name.size() > 1 && name.substr(1).starts_with(tail); };
    return std::ranges::binary_search(performanceNames, name) || name == "ELAPSED" ||
           std::ranges::any_of(performanceTails, isTail) || std::ranges::any_of(performancePrefixes, isPrefix);
}

/// R alone and two letters are regions; F as third letter, or RNLF, is a flow between two regions.
bool isInterRegionFlow(std::string_view name)
{
    return name.size() > 2 && (name[2] == 'F' || name.starts_with("RNLF"));
}

enum class Match
{
    Performance,
    Exactly,
    Prefix,
    InterRegionFlow
};

struct Rule
{
    Match match;
    std::string_view text;
    SummaryVectorType::Enum kind;
};

/// The first rule that fits decides: SRTFC is a reach and SCPMAX a field vector, although S stands for segments.
constexpr Rule rules[] = {
    {Match::Performance, "", Kind::SIMULATOR_PERFORMANCE},
    {Match::Exactly, "TIME", Kind::TIME},
    {Match::Exactly, "YEARS", Kind::TIME},
    {Match::Exactly, "DAY", Kind::TIME},
    {Match::Exactly, "MONTH", Kind::TIME},
    {Match::Exactly, "YEAR", Kind::TIME},
    {Match::Exactly, "SRRFLOW", Kind::REACH},
    {Match::Exactly, "SRRAREA", Kind::REACH},
    {Match::Exactly, "SRRDEPTH", Kind::REACH},
    {Match::Exactly, "SRREXCH", Kind::REACH},
    {Match::Exactly, "SRRFRODE", Kind::REACH},
    {Match::Exactly, "SRRQR", Kind::REACH},
    {Match::Exactly, "SRRQT", Kind::REACH},
    {Match::Exactly, "SRTFC", Kind::REACH},
    {Match::Exactly, "SRSFC", Kind::REACH},
    {Match::Exactly, "SRTFR", Kind::REACH},
    {Match::Exactly, "SRSFR", Kind::REACH},
    {Match::Exactly, "SRRHEAD", Kind::REACH},
    {Match::Exactly, "SRBQR", Kind::BRANCH},
    {Match::Exactly, "SRBQT", Kind::BRANCH},
    {Match::Exactly, "SRTQR", Kind::RIVER},
    {Match::Exactly, "SRTQT", Kind::RIVER},
    {Match::Prefix, "AL", Kind::AQUIFER_LIST},
    {Match::Prefix, "A", Kind::AQUIFER},
    {Match::Prefix, "QA", Kind::AQUIFER},
    {Match::Prefix, "B", Kind::BLOCK},
    {Match::Prefix, "C", Kind::COMPLETION},
    {Match::Prefix, "E", Kind::EDGE},
    {Match::Prefix, "F", Kind::FIELD},
    {Match::Exactly, "SCPMAX", Kind::FIELD},
    {Match::Exactly, "SCGMAX", Kind::FIELD},
    {Match::Exactly, "SCOMAX", Kind::FIELD},
    {Match::Exactly, "SCWMAX", Kind::FIELD},
    {Match::Exactly, "SCSMAX", Kind::FIELD},
    {Match::Exactly, "SCTMAX", Kind::FIELD},
    {Match::Prefix, "G", Kind::GROUP},
    {Match::Prefix, "N", Kind::NETWORK_NODE},
    {Match::Prefix, "PSS", unknownKind},
    {Match::Prefix, "P", Kind::NETWORK_NODE},
    {Match::InterRegionFlow, "R", Kind::INTER_REGION_FLOW},
    {Match::Prefix, "R", Kind::REGION},
    {Match::Prefix, "S", Kind::WELL_SEGMENT},
    {Match::Prefix, "WHTT", Kind::HEATER},
    {Match::Prefix, "WHTR", Kind::HEATER},
    {Match::Prefix, "W", Kind::WELL},
    {Match::Prefix, "LB", Kind::LOCAL_GRID_BLOCK},
    {Match::Prefix, "LC", Kind::LOCAL_GRID_COMPLETION},
    {Match::Prefix, "LW", Kind::LOCAL_GRID_WELL},
    {Match::Prefix, "LQW", Kind::LOCAL_GRID_WELL},
};

bool fits(const Rule& rule, std::string_view name)
{
    switch (rule.match) {
    case Match::Performance:
        return isPerformanceName(name);
    case Match::Exactly:
        return name == rule.text;
    case Match::Prefix:
        return name.starts_with(rule.text);
    case Match::InterRegionFlow:
        return name.starts_with(rule.text) && isInterRegionFlow(name);
    }
    return false;
}

} // namespace

SummaryVectorType::Enum SummaryVectorNameToType::getType(const std::string& keyword)
{
    const auto rule = std::ranges::find_if(rules, [&keyword](const Rule& each) { return fits(each, keyword); });
    return rule == std::end(rules) ? unknownKind : rule->kind;
}

} // namespace Kvt::Mrl::MrlIO
