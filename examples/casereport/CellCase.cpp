#include "CellCase.h"

#include <cstdint>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;
using DataFormat = FileIdentifiers::DataFormat;

/// Collects what the builders of readers complain of: no exception leaves them.
class Complaints : public ILog
{
public:
    const std::string& text() const { return text_; }

    bool isDebugEnabled() const override { return false; }

    bool isWarningEnabled() const override { return false; }

    bool isInfoEnabled() const override { return false; }

    bool isErrorEnabled() const override { return true; }

    bool isFatalEnabled() const override { return true; }

    void debug(const std::string&) const override {}

    void warning(const std::string&) const override {}

    void info(const std::string&) const override {}

    void error(const std::string& text) const override { text_ += (text_.empty() ? "" : "\n") + text; }

    void fatal(const std::string& text) const override { error(text); }

private:
    mutable std::string text_;
};

} // namespace

CellCase::CellCase(std::string directory, std::string caseName)
    : directory_(std::move(directory)),
      caseName_(std::move(caseName))
{}

void CellCase::refresh()
{
    const CaseFileFinder finder(caseName_, directory_);
    const auto any = DataFormat::DefaultAll();
    Complaints complaints;
    InitRestartReaderBuilders builders;
    builders.withLogger(&complaints);
    initial_.reset();
    steps_.reset();
    stepNumbers_.clear();
    if (!FileFinders::Restart::findInitFile(finder, any).empty())
        initial_ = builders.InitReaderBuilder().build(finder);
    if (!FileFinders::Restart::findRestartFiles(finder, any).empty())
        steps_ = builders.RestartReaderBuilder().build(finder, initial_);
    for (std::int64_t step = 0; steps_ != nullptr && step <= steps_->maxIndex(); ++step)
        if (steps_->isValidIndex(static_cast<int>(step)))
            stepNumbers_.push_back(static_cast<int>(step));
    gridFile_ = FileFinders::Grid::findFile(finder, any);
    trouble_ = complaints.text();
}

} // namespace casereport
