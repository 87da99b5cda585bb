#pragma once

#include <mrlio/service/Directory.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// What the names of an init or restart file and of its index file are made from.
struct RestartFileKind
{
    bool isRestart = false;
    bool formatted = false;
    bool unified = false; ///< one restart file rather than one per report step
    bool swapExtensionCase = false;
};

/// The names of a case's init or restart files.
class RestartFileNames
{
public:
    /// directory   need not exist; a relative one counts from the directory that is current now
    RestartFileNames(const std::string& directory, const std::string& rootName, const RestartFileKind& kind);

    /// The init file, the unified restart file, or the file of a report step.
    Service::FileName data(int reportStep) const;

    Service::FileName index() const;

    /// True for restart files of one report step each.
    bool isSplit() const { return kind_.isRestart && !kind_.unified; }

    /// throws   std::invalid_argument if there is a file of any report step
    void refuseSteps() const;

    /// Deletes the files of all report steps.
    void deleteSteps() const;

private:
    std::string dataExtension(int reportStep) const;
    std::string stepLetterSet() const;

    Service::Directory directory_;
    std::string rootName_;
    RestartFileKind kind_;
};

} // namespace Kvt::Mrl::MrlIO
