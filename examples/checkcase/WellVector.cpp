#include "WellVector.h"

namespace checkcase {

using namespace Kvt::Mrl::MrlIO;

/// In a case with local grids all vectors have a place in one, of zeros mostly: what counts for a well is its name.
std::vector<float> wellVector(const ISimpleSummaryReader& summary, const std::string& keyword, const std::string& well)
{
    const SummaryVectorIDParams wanted(keyword, well, -1, "", -1, -1, -1);
    for (const SummaryVectorIDParams& vector : summary.allVectorIDs())
        if (vector.compareWithType(wanted) == 0)
            if (const auto values = summary.getValues(vector))
                return *values;
    return {};
}

} // namespace checkcase
