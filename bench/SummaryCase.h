#pragma once

#include <cstdint>
#include <string>

namespace bench {

/// A large summary case, written by hand once per program: 100,000 mini steps in ten report steps, 2,000 vectors.
struct SummaryCase
{
    static constexpr int miniSteps = 100'000;
    static constexpr int reportSteps = 10;
    static constexpr int vectors = 2'000;
    static constexpr int wells = 16;
    static constexpr int singlePlace = 1'500; ///< of the only vector of its keyword, in the second record of PARAMS
    static constexpr int wellPlace = 600;     ///< of the first of 16 vectors of one keyword

    std::string directory, name = "LARGE", specFile, dataFile;

    /// Where the values of a mini step stand: position of PARAMS' header in the data file.
    static std::int64_t paramsPosition(int miniStep);

    /// Where one value stands.
    static std::int64_t valuePosition(int miniStep, int place);
};

const SummaryCase& summaryCase();

} // namespace bench
