#pragma once

#include "wellresults/NameSequence.h"
#include "wellresults/hmd/HMDContent.h"
#include "wellresults/hmd/HMDKeywords.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <set>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The walk that fills the content. It passes over the numbers, and reads what tells reports, owners and parameters.
class HMDScan
{
public:
    /// throws   HMDReaderException if there is no such file or it doesn't begin with a keyword
    HMDScan(HMDContent& content, const Service::FileName& file);

    /// throws   HMDReaderException for a file that isn't of this kind, MrlIOException for a damaged one
    void run();

private:
    /// The numbers of the keywords with a meaning of their own; all others have higher ones.
    enum Keyword : std::uint32_t
    {
        CODESTAT,
        TIMESTEP,
        GRADWELL,
        GRADGRUP,
        NAMES,
        GNAMES,
        HMHEADI
    };

    void meetKeyword(std::uint32_t keyword);
    void meetCodeState();
    void meetTimeStep();
    void meetOwner(NameSequence& known, std::set<std::string>& owners);
    void list(std::uint32_t keyword);

    HMDContent& content_;
    HMDWalk walk_;
    double lastTime_ = -9999.0;    // of a report; one that doesn't lie above it is none
    std::string pendingParameter_; // named, but not yet told by HMHEADI
    NameSequence keywords_{HMDKeyword::CODESTAT, HMDKeyword::TIMESTEP, HMDKeyword::GRADWELL, HMDKeyword::GRADGRUP,
                           HMDKeyword::NAMES,    HMDKeyword::GNAMES,   HMDKeyword::HMHEADI};
    SeenNumbers listed_;
    NameSequence wells_;
    NameSequence groups_;
};

} // namespace Kvt::Mrl::MrlIO
