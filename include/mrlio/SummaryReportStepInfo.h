#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <ios>
#include <list>
#include <memory>

namespace Kvt::Mrl::MrlIO {

/// One mini step of a summary data file: its number and where its PARAMS stands. A value.
class MRLIO_EXPORT SummaryMiniStepInfo
{
public:
    SummaryMiniStepInfo(int number, std::streampos position) : number_(number), position_(position) {}

    int number() const { return number_; }

    /// Where the header of the PARAMS keyword begins in the file of the report step.
    std::streampos position() const { return position_; }

private:
    int number_;
    std::streampos position_;
};

/// One report step of a case's summary data: the file that holds it and its mini steps. Belongs to one thread while
/// mini steps are added.
class MRLIO_EXPORT SummaryReportStepInfo
{
public:
    using MiniSteps = std::list<std::shared_ptr<SummaryMiniStepInfo>>;

    explicit SummaryReportStepInfo(const Service::FileName& fileName);
    /// The same for many report steps of one file, which share its name. fileName is not null.
    explicit SummaryReportStepInfo(std::shared_ptr<const Service::FileName> fileName);

    const Service::FileName& fileName() const { return *fileName_; }

    /// Ascending by number.
    const MiniSteps& miniSteps() const { return miniSteps_; }

    /// Adds a mini step at its place by number.
    /// throws  SummaryReaderException for a negative number and for one that is there already; nothing is added then
    /// cost    constant as long as the numbers ascend
    void addMiniStep(int number, std::streampos position);

private:
    std::shared_ptr<const Service::FileName> fileName_;
    MiniSteps miniSteps_;
};

} // namespace Kvt::Mrl::MrlIO
