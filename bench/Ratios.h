#pragma once

/// \file
/// Benchmarks come in pairs: the library's time, and in the same run that of a floor, a hand-written program that does
/// no more than the file system and the processor must. The ratio of their medians is what counts, since absolute times
/// move from machine to machine and from hour to hour.

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

/// How the pairs of a program are named and what they are held to.
struct Pairing
{
    std::string numerator;   ///< part of a benchmark's name, as in "/library"
    std::string denominator; ///< what stands in its place in the other one's name, as in "/floor"
    std::string wanted;      ///< printed behind each ratio, as in "at most 1.3"
};

/// Prints benchmarks as usual and keeps the medians for the ratios.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void printRatios(const Pairing& pairing) const;

private:
    std::map<std::string, double> medians_;
};

/// In place of BENCHMARK_MAIN: runs everything several times in random order, and prints the ratios.
int run(int argumentCount, char** arguments, const std::vector<Pairing>& pairings);

} // namespace bench
