#include "SummaryCase.h"

#include "Floor.h"

namespace bench {

namespace {

constexpr std::int64_t oneIntegerLength = 24 + 12;
constexpr std::int64_t paramsLength = 24 + 4 * SummaryCase::vectors + 2 * 8;
constexpr int stepsAReport = SummaryCase::miniSteps / SummaryCase::reportSteps;
constexpr std::int64_t miniStepLength = oneIntegerLength + paramsLength;

static_assert(SummaryCase::vectors == 2 * blockLength);

void writeSpec(const std::string& path)
{
    constexpr auto count = static_cast<std::size_t>(SummaryCase::vectors);
    std::vector<std::string> keywords(count), names(count, ":+:+:+:+"), units(count, "SM3/DAY");
    std::vector<std::int32_t> numbers(count);
    for (std::size_t n = 0; n < count; ++n) {
        keywords[n] = "BPR";
        numbers[n] = static_cast<std::int32_t>(n + 1);
    }
    keywords[0] = "TIME";
    keywords[SummaryCase::singlePlace] = "FOPR";
    for (int well = 0; well < SummaryCase::wells; ++well) {
        const auto place = static_cast<std::size_t>(SummaryCase::wellPlace + well);
        keywords[place] = "WOPR";
        names[place] = "W" + std::to_string(well + 1);
    }
    HandWriter writer(path);
    writer.keyword("DIMENS", {SummaryCase::vectors, 10, 10, 20, 0, 0});
    writer.texts("KEYWORDS", keywords);
    writer.texts("WGNAMES", names);
    writer.keyword("NUMS", numbers);
    writer.texts("UNITS", units);
    writer.keyword("STARTDAT", {1, 1, 2026, 0, 0, 0});
}

void writeData(const std::string& path)
{
    HandWriter writer(path);
    std::vector<float> values = someValues(SummaryCase::vectors);
    for (int step = 0; step < SummaryCase::miniSteps; ++step) {
        if (step % stepsAReport == 0)
            writer.keyword("SEQHDR", {1});
        writer.keyword("MINISTEP", {step});
        values[0] = static_cast<float>(step) * 0.1F;
        writer.header("PARAMS", SummaryCase::vectors, "REAL");
        writer.reals(values.data(), values.size());
    }
}

SummaryCase makeCase()
{
    SummaryCase made;
    made.directory = folder().path();
    made.specFile = folder().file(made.name + ".SMSPEC");
    made.dataFile = folder().file(made.name + ".UNSMRY");
    writeSpec(made.specFile);
    writeData(made.dataFile);
    return made;
}

} // namespace

std::int64_t SummaryCase::paramsPosition(int miniStep)
{
    const std::int64_t headersBefore = miniStep / stepsAReport + 1;
    return headersBefore * oneIntegerLength + miniStep * miniStepLength + oneIntegerLength;
}

std::int64_t SummaryCase::valuePosition(int miniStep, int place)
{
    const std::int64_t marksBefore = 1 + 2 * (place / static_cast<int>(blockLength));
    return paramsPosition(miniStep) + 24 + 4 * marksBefore + 4 * std::int64_t{place};
}

const SummaryCase& summaryCase()
{
    static const SummaryCase instance = makeCase();
    return instance;
}

} // namespace bench
