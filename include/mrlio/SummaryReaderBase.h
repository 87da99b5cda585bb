#pragma once

#include <mrlio/Export.h>
#include <mrlio/ISummaryDataLoader.h>
#include <mrlio/ISummaryReader.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The part of a summary reader that needs only the spec data, which it shares, and a loader.
class MRLIO_EXPORT SummaryReaderBase : public virtual ISummaryReader
{
public:
    /// spec is not null: a null pointer throws std::invalid_argument.
    explicit SummaryReaderBase(std::shared_ptr<SummarySpecData> spec);
    ~SummaryReaderBase() override;

    bool isValid() const override;
    std::string specFilename() const override;
    const Service::YearMonthDay& startDate() const override;
    const Service::HourMinuteSecondMillisecond& startTime() const override;
    int NX() const override;
    int NY() const override;
    int NZ() const override;
    const std::vector<std::string>& LGRs() const override;
    const std::vector<SummaryVectorIDParams>& allVectorIDs() const override;
    const SummaryVectorIDParams& timeVectorID() const override;
    const std::string& unit(const SummaryVectorIDParams& id) const override;
    const std::string& measurement(const SummaryVectorIDParams& id) const override;
    std::shared_ptr<const std::vector<float>> getValues(const SummaryVectorIDParams& id) const override;
    int index(const SummaryVectorIDParams& id) const override;
    const SummarySpecData& specData() const override;

protected:
    /// The loader that getValues() asks. May throw what making it throws.
    virtual const ISummaryDataLoader& dataAccessor() const = 0;

private:
    std::shared_ptr<SummarySpecData> spec_;
};

} // namespace Kvt::Mrl::MrlIO
