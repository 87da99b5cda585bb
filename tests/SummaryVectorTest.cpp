#include <mrlio/SummaryVectorIDParams.h>
#include <mrlio/SummaryVectorNameToType.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using Kind = SummaryVectorType;

constexpr auto unknown = static_cast<Kind::Enum>(21);

struct NamesOfKind
{
    Kind::Enum kind;
    std::vector<std::string> names;
};

// Names next to each other's rules: what one rule takes, a neighbouring one must not.
const std::vector<NamesOfKind> namesByKind{
    {Kind::AQUIFER_LIST, {"AL", "AL1"}},
    {Kind::AQUIFER, {"A", "AAQR", "QA", "QAX"}},
    {Kind::BLOCK, {"B", "BPR"}},
    {Kind::COMPLETION, {"C", "COPR"}},
    {Kind::EDGE, {"E", "EOFF", "ELAPSE"}},
    {Kind::FIELD, {"F", "FOPR", "SCPMAX", "SCGMAX", "SCOMAX", "SCWMAX", "SCSMAX", "SCTMAX"}},
    {Kind::GROUP, {"G", "GOPR"}},
    {Kind::NETWORK_NODE, {"N", "NPR", "NEW", "NLIN", "P", "PS", "PXSS"}},
    {Kind::INTER_REGION_FLOW, {"RPF", "ROFT", "RNLFX", "RNLF", "RXF"}},
    {Kind::REGION, {"R", "RP", "RF", "RGPR", "RNL", "RNLX", "ROPF"}},
    {Kind::REACH,
     {"SRRFLOW", "SRRAREA", "SRRDEPTH", "SRREXCH", "SRRFRODE", "SRRQR", "SRRQT", "SRTFC", "SRSFC", "SRTFR", "SRSFR",
      "SRRHEAD"}},
    {Kind::BRANCH, {"SRBQR", "SRBQT"}},
    {Kind::RIVER, {"SRTQR", "SRTQT"}},
    {Kind::WELL_SEGMENT, {"S", "SPR", "SCPMAX1", "SRRQRX", "SLINEARX"}},
    {Kind::HEATER, {"WHTT", "WHTTX", "WHTRX"}},
    {Kind::WELL, {"W", "WHT", "WBHP"}},
    {Kind::LOCAL_GRID_BLOCK, {"LB", "LBPR"}},
    {Kind::LOCAL_GRID_COMPLETION, {"LC", "LCOPR"}},
    {Kind::LOCAL_GRID_WELL, {"LW", "LWOPR", "LQW", "LQWX"}},
    {Kind::TIME, {"TIME", "YEARS", "DAY", "MONTH", "YEAR"}},
    {Kind::SIMULATOR_PERFORMANCE,
     {"STPAVE", "PERFORMA", "STEPTYPE", "NCPRLINS", "STPATG", "SCPU", "SMAXLIN", "SMAXITS", "SDSAMX", "STPMAX",
      "STPTLM", "SMAXST", "SDMAXF", "SIMAXF", "NBYTOT", "SMINST", "NLRESSUM", "NLRESMAX", "SDXNLM", "SDXNTG", "NGOPAS",
      "STOTLN", "SNEWTIT", "NTS", "STOTTS", "NTSPCL", "NTSMCL", "NTSECL", "STRA_NUM", "STRT_NUM", "STRD_NUM", "SCPRTG",
      "SDSATG", "STPTTG", "STSTEP", "STTETG", "STTELM", "STOTNL", "STOTRS", "NNEWST", "NPBMINEX", "NPBMAXEX",
      "NRSMINEX", "NRSMAXEX", "NBOEXO", "NPDMINEX", "NPDMAXEX", "NRVMINEX", "NRVMAXEX", "NBOEXG", "NBOEX", "TIMESTEP",
      "LINEARS", "LINEARP", "SUMLINS", "MAX", "NAIMFRAC", "NBAKFL",
      // by a rule instead of the list
      "ELAPSED", "FLINEARS", "XSUMLINS", "ALINEARP", "WLINEARSX", "MAXDPR", "NEWTON", "NNUM", "NLINSX", "TCPUDAY",
      "TELAPX", "ZIPEFFX"}},
    {unknown, {"", "Q", "QOPR", "PSS", "PSSXY", "L", "LQX", "LX", "TIMEX", "DAYS", "time", "wopr", "X", " WOPR", "1"}},
};

TEST(SummaryVectorKind, ComesFromTheFirstRuleThatFits)
{
    for (const auto& [kind, names] : namesByKind) {
        for (const std::string& name : names)
            EXPECT_EQ(SummaryVectorNameToType::getType(name), kind) << '"' << name << '"';
    }
}

SummaryVectorIDParams makeId(const std::string& keyword, const std::string& name = "", int num = -1,
                             const std::string& grid = "", int x = -1, int y = -1, int z = -1)
{
    return {keyword, name, num, grid, x, y, z};
}

TEST(SummaryVectorIdentity, TrimsNamesAndDropsTheSentinel)
{
    const auto id = makeId("  WOPR ", " P 1  ", 3, "\tLGR1 ", 1, 2, 3);
    EXPECT_EQ(id.toDebugString(), "WOPR[P 1][3][LGR1][1][2][3]");
    EXPECT_EQ(makeId("WOPR", " :+:+:+:+ ", -1, ":+:+:+:+X").toDebugString(), "WOPR[][-1][][-1][-1][-1]");
    // Only names can be absent, and only the whole sentinel says so.
    EXPECT_EQ(makeId(":+:+:+:+", ":+:+:+:").toDebugString(), ":+:+:+:+[:+:+:+:][-1][][-1][-1][-1]");
    EXPECT_EQ(SummaryVectorIDParams::createFromVectorName("  TIME "), makeId("TIME"));
}

TEST(SummaryVectorIdentity, OrdersByKeywordNumberCellNameAndGrid)
{
    // Ascending: each differs from the one before in a field that decides earlier than all that fall behind it.
    const std::vector<SummaryVectorIDParams> ascending{
        makeId("A", "Z", 9, "Z", 9, 9, 9), makeId("B", "Z", -1, "Z", 9, 9, 9), makeId("B", "Z", 2, "Z", 1, 9, 9),
        makeId("B", "Z", 2, "Z", 2, 1, 9), makeId("B", "Z", 2, "Z", 2, 2, 1),  makeId("B", "A", 2, "Z", 2, 2, 2),
        makeId("B", "B", 2, "A", 2, 2, 2), makeId("B", "B", 2, "B", 2, 2, 2),
    };
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(ascending[i] < ascending[j], i < j) << i << ' ' << j;
            EXPECT_EQ(ascending[i] > ascending[j], i > j) << i << ' ' << j;
            EXPECT_EQ(ascending[i] == ascending[j], i == j) << i << ' ' << j;
        }
    }
}

TEST(SummaryVectorIdentity, ComparesOnlyWhatItsKindNeeds)
{
    struct Row
    {
        const char* keyword;
        bool name, num, grid, cell;
    };

    for (const Row& row : {Row{"FPR", false, false, false, false}, Row{"BPR", false, true, false, false},
                           Row{"WOPR", true, false, false, false}, Row{"COPR", true, true, false, false},
                           Row{"LBPR", false, false, true, true}, Row{"LCOPR", true, false, true, true},
                           Row{"LWOPR", true, false, true, false}, Row{"RPR", true, true, false, false},
                           Row{"XYZ", true, true, true, true}}) {
        const auto base = makeId(row.keyword, "A", 1, "G", 1, 1, 1);
        const auto differs = [&base](const SummaryVectorIDParams& other) { return base.compareWithType(other) < 0; };
        EXPECT_EQ(differs(makeId(row.keyword, "B", 1, "G", 1, 1, 1)), row.name) << row.keyword;
        EXPECT_EQ(differs(makeId(row.keyword, "A", 2, "G", 1, 1, 1)), row.num) << row.keyword;
        EXPECT_EQ(differs(makeId(row.keyword, "A", 1, "H", 1, 1, 1)), row.grid) << row.keyword;
        EXPECT_EQ(differs(makeId(row.keyword, "A", 1, "G", 2, 1, 1)), row.cell) << row.keyword;
        EXPECT_EQ(differs(makeId(row.keyword, "A", 1, "G", 1, 1, 2)), row.cell) << row.keyword;
        EXPECT_EQ(base.compareWithType(base), 0) << row.keyword;
    }
    // A region's name counts as soon as one of the two has one.
    EXPECT_NE(makeId("RPR", "", 1).compareWithType(makeId("RPR", "FIP2", 1)), 0);
    EXPECT_EQ(makeId("RPR", "", 1).compareWithType(makeId("RPR", "", 1, "G")), 0);
    EXPECT_LT(makeId("FPR").compareWithType(makeId("WOPR")), 0);
}

TEST(SummaryVectorIdentity, IsValidWithAllFieldsThatItsKindNeeds)
{
    struct Row
    {
        SummaryVectorIDParams id;
        bool valid;
    };

    const std::vector<Row> rows{
        {makeId("WBHP"), false},
        {makeId("WBHP", "P1"), true},
        {makeId("COPR", "P1"), false},
        {makeId("COPR", "P1", 0), true},
        {makeId("BPR", "", -2), false},
        {makeId("LBPR", "", -1, "G", 1, 1, -1), false},
        {makeId("LBPR", "", -1, "", 1, 1, 1), false},
        {makeId("LBPR", "", -1, "G", 1, 1, 1), true},
        {makeId("RPR", "", 1), true},
        {makeId("FPR"), true},
        {makeId("XYZ"), true},
        {makeId("", "P1", 1, "G", 1, 1, 1), false},
        {SummaryVectorIDParams(), false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.id.validWithType(), row.valid) << row.id.toDebugString();
}

TEST(SummaryVectorIdentity, AsksForTheFieldsOfEachKind)
{
    using Id = SummaryVectorIDParams;

    struct Row
    {
        const char* keyword;
        int mask;
    };

    for (const Row& row :
         {Row{"AAQR", Id::eNum}, Row{"ALQR", Id::eWgName}, Row{"RPF", Id::eNum}, Row{"GOPR", Id::eWgName},
          Row{"NPR", Id::eWgName}, Row{"SRTQR", Id::eWgName}, Row{"WHTT", Id::eWgName}, Row{"SPR", 3}, Row{"SRRQR", 3},
          Row{"SRBQR", 3}, Row{"TIME", 0}, Row{"SCPU", 0}, Row{"EOFF", 0}, Row{"LBPR", 12}, Row{"LCOPR", 13},
          Row{"LWOPR", 5}, Row{"RPR", 18}, Row{"XYZ", 15}})
        EXPECT_EQ(makeId(row.keyword).requiredFieldsFromType(), row.mask) << row.keyword;
}

} // namespace
