#include "wellresults/grft/GRFTScan.h"

#include "wellresults/MatchParameter.h"

namespace Kvt::Mrl::MrlIO {

namespace {

using Categorizer = GRFTArrayNameCategorizer;

constexpr auto unknownSubject = static_cast<Categorizer::SubjectType>(-1);

} // namespace

GRFTScan::GRFTScan(GRFTContent& content, const Service::FileName& file)
    : content_(content),
      scan_(content, file, GRFTFamily::isFormatted(file))
{}

void GRFTScan::run()
{
    while (scan_.next()) {
        switch (scan_.keyword()) {
        case DatedScan<GRFTFamily>::NAMES:
            pendingName_ = matchNames(scan_.walk())[NamesText::parameter];
            break; // not an array of its own
        case DatedScan<GRFTFamily>::HMHEADI:
            meetParameter();
            list();
            break;
        default:
            list();
        }
    }
}

void GRFTScan::meetParameter()
{
    const GRFTParameter parameter = takeParameter(scan_.walk(), pendingName_);
    const auto [known, isNew] = parameters_.try_emplace(parameter);
    if (isNew)
        known->second.info = &content_.addParameter(parameter);
    parameter_ = &known->second;
}

/// Adds the keyword to the arrays of what it belongs to, and to those of the file.
void GRFTScan::list()
{
    const Categorizer::SubjectType subject = subjectOfKeyword();
    if (parameter_ && Categorizer::hasParameter(subject) && parameter_->seen.add(scan_.keyword()))
        parameter_->info->arrayNames.addArrayName(scan_.name());
    if (Categorizer::hasWell(subject))
        scan_.listInWell();
    scan_.listInFile();
}

GRFTArrayNameCategorizer::SubjectType GRFTScan::subjectOfKeyword()
{
    const std::uint32_t keyword = scan_.keyword();
    if (keyword >= subjects_.size())
        subjects_.resize(keyword + 1, unknownSubject);
    if (subjects_[keyword] == unknownSubject)
        subjects_[keyword] = Categorizer::subjectPriv(scan_.name());
    return subjects_[keyword];
}

} // namespace Kvt::Mrl::MrlIO
