#include "SummaryOutput.h"

#include "SummaryVectors.h"
#include "WriterSettings.h"

#include <mrlio/MrlIO.h>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// The names of a grid's vectors as the summary writer asks for them.
class VectorSpec : public ISummaryVectorArraySpec, private ISummaryVectorPositions
{
public:
    VectorSpec(const std::vector<SummaryVector>& vectors, bool local) : vectors_(vectors), local_(local) {}

    int size() const override { return static_cast<int>(vectors_.size()); }

    std::string keyword(int n) const override { return at(n).keyword; }

    std::string name(int n) const override { return at(n).name; }

    int num(int n) const override { return at(n).number; }

    std::string units(int n) const override { return at(n).units; }

    bool hasMeasurements() const override { return true; }

    std::string measurement(int n) const override { return at(n).measurement; }

    const ISummaryVectorPositions* positions() const override { return local_ ? this : nullptr; }

private:
    int x(int n) const override { return at(n).localI; }

    int y(int n) const override { return at(n).localJ; }

    int z(int n) const override { return at(n).localK; }

    const SummaryVector& at(int n) const { return vectors_[static_cast<std::size_t>(n)]; }

    const std::vector<SummaryVector>& vectors_;
    bool local_;
};

/// The values of a grid's vectors now.
class VectorValues : public ISummaryVectorArray
{
public:
    VectorValues(const std::vector<SummaryVector>& vectors, const Simulator& simulator)
        : vectors_(vectors),
          simulator_(simulator)
    {}

    int size() const override { return static_cast<int>(vectors_.size()); }

    float value(int n) const override
    {
        return static_cast<float>(vectors_[static_cast<std::size_t>(n)].value(simulator_));
    }

private:
    const std::vector<SummaryVector>& vectors_;
    const Simulator& simulator_;
};

} // namespace

struct SummaryOutput::Impl
{
    Impl(const Options& options, const Reservoir& reservoir)
        : global(globalVectors(reservoir)),
          local(reservoir.localGrid ? localVectors(reservoir) : std::vector<SummaryVector>()),
          writer(options.directory, options.caseName, gridSpec(fileGrids(reservoir).front()), startDate(),
                 options.formatted, writerParams(options), true)
    {
        writer.addArraySpec(VectorSpec(global, false));
        if (!local.empty())
            writer.addArraySpec(reservoir.localGrid->name, VectorSpec(local, true));
    }

    std::vector<SummaryVector> global, local;
    SummaryWriter writer;
    bool first = true, between = false;
};

SummaryOutput::SummaryOutput(const Options& options, const Reservoir& reservoir)
    : impl_(std::make_unique<Impl>(options, reservoir))
{}

SummaryOutput::~SummaryOutput() = default;

void SummaryOutput::record(const Simulator& simulator)
{
    const auto days = static_cast<float>(simulator.days());
    if (impl_->between)
        impl_->writer.openAtNextReportStep(days);
    else if (!impl_->first)
        impl_->writer.nextMiniStep(days, false);
    impl_->first = impl_->between = false;
    impl_->writer.writeArray(VectorValues(impl_->global, simulator));
    if (!impl_->local.empty())
        impl_->writer.writeArray(simulator.reservoir().localGrid->name, VectorValues(impl_->local, simulator));
}

void SummaryOutput::endReportStep()
{
    impl_->writer.close();
    impl_->between = true;
}

} // namespace waterflood
