#include "Ratios.h"

#include <cstdio>

namespace bench {

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs)
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            medians_[run.run_name.function_name + "/" + run.run_name.args] = run.GetAdjustedRealTime();
}

void RatioReporter::printRatios(const Pairing& pairing) const
{
    for (const auto& [name, time] : medians_) {
        const std::size_t place = name.find(pairing.numerator);
        if (place == std::string::npos)
            continue;
        std::string other = name;
        other.replace(place, pairing.numerator.size(), pairing.denominator);
        const auto found = medians_.find(other);
        if (found == medians_.end())
            continue;
        std::string title = name;
        title.erase(place, pairing.numerator.size());
        std::printf("ratio  %-44s %6.2f   %s over %s, wanted %s\n", title.c_str(), time / found->second,
                    pairing.numerator.c_str() + 1, pairing.denominator.c_str() + 1, pairing.wanted.c_str());
    }
}

int run(int argumentCount, char** arguments, const std::vector<Pairing>& pairings)
{
    // The machine's speed drifts within seconds; interleaved repetitions let both sides of a pair see the same of it.
    std::vector<std::string> texts(arguments, arguments + argumentCount);
    texts.insert(texts.begin() + 1, {"--benchmark_repetitions=7", "--benchmark_enable_random_interleaving=true",
                                     "--benchmark_display_aggregates_only=true", "--benchmark_min_time=0.2"});
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Pairing& pairing : pairings)
        reporter.printRatios(pairing);
    benchmark::Shutdown();
    return 0;
}

} // namespace bench
