#include "wellresults/grft/GRFTDataLoaderIncremental.h"

#include "wellresults/MatchParameter.h"

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int none = -1;

} // namespace

/// Well and parameter stay the current ones until the next, also beyond the end of a block.
void GRFTDataLoaderIncremental::readReport(Walk& walk, StoredArrays& arrays)
{
    int well = none;
    int parameter = none;
    std::string pendingName;
    while (walk.next()) {
        if (walk.name() == ReportKeyword::NAMES) {
            walk.setOpen(false);
            pendingName = matchNames(walk.scan())[NamesText::parameter];
            continue;
        }
        if (walk.name() == ReportKeyword::HMHEADI) {
            walk.setOpen(true);
            parameter = parameters_.index(takeParameter(walk.scan(), walk.integers(), pendingName));
        } else if (walk.name() == WellEtc::keyword) {
            well = wells_.index(walk.wellName());
        }
        if (walk.isOpen())
            arrays.store(keyOf(walk.name(), parameter, well), readArray(walk));
    }
}

ArrayKey GRFTDataLoaderIncremental::keyOf(const std::string& array, int parameterId, int wellId)
{
    const auto subject = GRFTArrayNameCategorizer::subjectPriv(array);
    return {.array = arrays_.index(array),
            .parameter = GRFTArrayNameCategorizer::hasParameter(subject) ? parameterId : none,
            .well = GRFTArrayNameCategorizer::hasWell(subject) ? wellId : none};
}

ArrayKey GRFTDataLoaderIncremental::keyOf(const std::string& array, const GRFTParameter& parameter,
                                          const std::string& well)
{
    return keyOf(array, parameters_.index(parameter), wells_.index(well));
}

} // namespace Kvt::Mrl::MrlIO
