#pragma once

#include "MessageFile.h"

#include <mrlio/MrlIO.h>

#include <memory>
#include <optional>
#include <string>

namespace casereport {

/// What a case holds beside its summary and its cells: well results and their derivatives,
/// flows over the boundaries of regions, messages.
class SideFiles
{
public:
    SideFiles(const std::string& directory, const std::string& caseName);

    /// Null if there are none.
    const Kvt::Mrl::MrlIO::RFTReader* wells() const { return wells_.get(); }

    /// Null if there are none.
    const Kvt::Mrl::MrlIO::GRFTReader* gradients() const { return gradients_.get(); }

    /// Null if there is none.
    const Kvt::Mrl::MrlIO::HMDReader* matchData() const { return matchData_.get(); }

    /// Null if there are none.
    const Kvt::Mrl::MrlIO::DumpfluxReader* fluxes() const { return fluxes_.get(); }

    /// Null if there are none.
    const MessageFile* messages() const { return messages_ ? &*messages_ : nullptr; }

    /// Whether none of them is there, not even a damaged one.
    bool isEmpty() const { return !wells_ && !gradients_ && !matchData_ && !fluxes_ && !messages_ && trouble_.empty(); }

    /// What was wrong with the files that are there; empty if nothing was.
    const std::string& trouble() const { return trouble_; }

private:
    template <class Open>
    void tryTo(const Open& open);

    std::unique_ptr<Kvt::Mrl::MrlIO::RFTReader> wells_;
    std::unique_ptr<Kvt::Mrl::MrlIO::GRFTReader> gradients_;
    std::unique_ptr<Kvt::Mrl::MrlIO::HMDReader> matchData_;
    std::unique_ptr<Kvt::Mrl::MrlIO::DumpfluxReader> fluxes_;
    std::optional<MessageFile> messages_;
    std::string trouble_;
};

} // namespace casereport
