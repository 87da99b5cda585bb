#pragma once

#include "wellresults/DatedContent.h"
#include "wellresults/NameSequence.h"
#include "wellresults/grft/GRFTContent.h"

#include <mrlio/GRFTParameter.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The walk that fills the content of a gradient file. It reads the data of TIME, DATE, WELLETC, NAMES and HMHEADI.
class GRFTScan
{
public:
    GRFTScan(GRFTContent& content, const Service::FileName& file);

    void run();

private:
    struct ScannedParameter
    {
        GRFTParameterInfo* info;
        SeenNumbers seen;
    };

    void meetParameter();
    void list();
    GRFTArrayNameCategorizer::SubjectType subjectOfKeyword();

    GRFTContent& content_;
    DatedScan<GRFTFamily> scan_;
    std::string pendingName_; // of the parameter that the next HMHEADI describes
    std::map<GRFTParameter, ScannedParameter> parameters_;
    ScannedParameter* parameter_ = nullptr;                       // the current one; the next HMHEADI sets it anew
    std::vector<GRFTArrayNameCategorizer::SubjectType> subjects_; // by number of keyword
};

} // namespace Kvt::Mrl::MrlIO
